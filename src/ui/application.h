#pragma once
// The failure boundary: every event the program handles goes through notify(), and a run-time
// failure that escapes a handler shows the platform's error box and ends the program there.
#include <QApplication>
#include <string>

namespace qc {

class RuntimeFailure;
struct Services;

// The error box text: "Run-time error '5':" followed by a blank line and the failure's text.
std::string RuntimeErrorText(const RuntimeFailure& failure);

// The caption of the error box.
inline constexpr const char* kRuntimeErrorTitle = "quillcast";

// Shows the error box through the services' prompts and ends the program with status 1 through
// their end. An end that returns (a test's) lets notify() report the event as unhandled and
// carry on.
void ReportUnhandledFailure(const RuntimeFailure& failure, const Services& services);

class Application : public QApplication {
 public:
  Application(int& argc, char** argv);
  // What the boundary reports through; must outlive the application's event handling.
  void Serve(const Services& services) { services_ = &services; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  const Services* services_ = nullptr;
};

}  // namespace qc
