#include "ui/application.h"

#include "base/failure.h"
#include "base/prompts.h"
#include "ui/services.h"

namespace qc {

std::string RuntimeErrorText(const RuntimeFailure& failure) {
  return "Run-time error '" + std::to_string(failure.number()) + "':\n\n" + failure.text();
}

void ReportUnhandledFailure(const RuntimeFailure& failure, const Services& services) {
  services.prompts.MsgBox(RuntimeErrorText(failure), kOkOnly | kCritical, kRuntimeErrorTitle);
  services.endProgram(1);
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const RuntimeFailure& failure) {
    if (!services_) throw;  // nothing of the program runs before it is served
    ReportUnhandledFailure(failure, *services_);
    return false;
  }
}

}  // namespace qc
