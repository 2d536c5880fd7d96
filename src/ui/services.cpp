#include "ui/services.h"

#include <QDesktopServices>
#include <QUrl>
#include <cstdio>
#include <cstdlib>

#include "ui/shown_text.h"

namespace qc {

Services PlatformServices(WindowSystem& windows, Prompts& prompts, SettingsStore& settings) {
  return Services{
      .windows = windows,
      .prompts = prompts,
      .drivers = RealRunDrivers(windows),
      .settings = settings,
      .today = MachineToday,
      .deskArea = PrimaryScreenDesk,
      .openWebPage =
          [](const std::string& address) {
            QDesktopServices::openUrl(QUrl(ToQ(address)));  // the result is of no interest
          },
      .endProgram =
          [](int exitStatus) {
            std::fflush(nullptr);
            std::_Exit(exitStatus);
          },
  };
}

}  // namespace qc
