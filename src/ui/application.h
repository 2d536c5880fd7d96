#pragma once
// The failure boundary: every event the program handles goes through notify(), and a run-time
// failure that escapes a handler shows the platform's error box and ends the program there.
#include <QApplication>
#include <functional>
#include <string>

namespace qc {

class RuntimeFailure;

// The error box text: "Run-time error '5':" followed by a blank line and the failure's text.
std::string RuntimeErrorText(const RuntimeFailure& failure);

// The caption of the error box.
inline constexpr const char* kRuntimeErrorTitle = "quillcast";

// How the program ends after the error box (default: exit status 1 at once, without unwinding).
// Tests replace it to observe the end; a hook that returns lets notify() report the event as
// unhandled and carry on.
using EndProgramHook = std::function<void(int exitStatus)>;
void SetEndProgramHook(EndProgramHook hook);  // an empty hook restores the default
void EndProgram(int exitStatus);

// Shows the error box through CurrentPrompts() and ends the program through the hook.
void ReportUnhandledFailure(const RuntimeFailure& failure);

class Application : public QApplication {
 public:
  Application(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace qc
