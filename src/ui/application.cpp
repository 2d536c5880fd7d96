#include "ui/application.h"

#include <cstdio>
#include <cstdlib>

#include "base/failure.h"
#include "base/prompts.h"

namespace qc {
namespace {

EndProgramHook& Hook() {
  static EndProgramHook hook;
  return hook;
}

}  // namespace

std::string RuntimeErrorText(const RuntimeFailure& failure) {
  return "Run-time error '" + std::to_string(failure.number()) + "':\n\n" + failure.text();
}

void SetEndProgramHook(EndProgramHook hook) { Hook() = std::move(hook); }

void EndProgram(int exitStatus) {
  if (Hook()) {
    Hook()(exitStatus);
    return;
  }
  // Ends where it stands, as the platform does: nothing unwinds, nothing more is saved.
  std::fflush(nullptr);
  std::_Exit(exitStatus);
}

void ReportUnhandledFailure(const RuntimeFailure& failure) {
  CurrentPrompts().MsgBox(RuntimeErrorText(failure), kOkOnly | kCritical, kRuntimeErrorTitle);
  EndProgram(1);
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const RuntimeFailure& failure) {
    ReportUnhandledFailure(failure);
    return false;
  }
}

}  // namespace qc
