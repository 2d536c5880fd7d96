#include "run/run_drivers.h"

#include "client/client_commands.h"
#include "client/compose_mail.h"
#include "client/full_box.h"
#include "client/window_routines.h"
#include "client/window_system.h"
#include "client/write_mail.h"

namespace qc {

RunDrivers RealRunDrivers() {
  RunDrivers d;
  d.clientScreenName = [] { return ClientScreenName(CurrentWindowSystem()); };
  d.clientVersion = [] { return ClientVersion(CurrentWindowSystem()); };
  d.checkFullBoxes = [](AddressList& list) { CheckFullBoxes(CurrentWindowSystem(), list); };
  d.sendFileMail95 = [](const std::string& to, const std::string& subject,
                        const std::string& body, const std::string& path, bool sendLater) {
    SendFileMail95(CurrentWindowSystem(), to, subject, body, path, sendLater);
  };
  d.sendFileMail50 = [](const std::string& to, const std::string& subject,
                        const std::string& body, const std::string& path, bool sendLater) {
    SendFileMail50(CurrentWindowSystem(), to, subject, body, path, sendLater);
  };
  d.sendFileMail40 = [](const std::string& to, const std::string& subject,
                        const std::string& body, const std::string& path, bool sendLater) {
    SendFileMail40(CurrentWindowSystem(), to, subject, body, path, sendLater);
  };
  d.sendNoticeMail95 = [](const std::string& to, const std::string& subject,
                          const std::string& body) {
    SendNoticeMail95(CurrentWindowSystem(), to, subject, body);
  };
  d.sendNoticeMail50 = [](const std::string& to, const std::string& subject,
                          const std::string& body) {
    SendNoticeMail50(CurrentWindowSystem(), to, subject, body);
  };
  d.runMainMenu = [](const std::string& itemText) {
    RunMainMenu(CurrentWindowSystem(), itemText);
  };
  d.runToolbarMenu = [](std::int16_t iconIndex, std::int16_t downCount) {
    RunToolbarMenu(CurrentWindowSystem(), iconIndex, downCount);
  };
  d.openOutgoingMail40 = [] { OpenOutgoingMail40(CurrentWindowSystem()); };
  return d;
}

RunDrivers& CurrentRunDrivers() {
  static RunDrivers drivers = RealRunDrivers();
  return drivers;
}

namespace {

template <class F>
void KeepReal(F& entry, const F& real) {
  if (!entry) entry = real;
}

}  // namespace

ScopedRunDrivers::ScopedRunDrivers(RunDrivers drivers) : saved_(CurrentRunDrivers()) {
  const RunDrivers real = RealRunDrivers();
  KeepReal(drivers.clientScreenName, real.clientScreenName);
  KeepReal(drivers.clientVersion, real.clientVersion);
  KeepReal(drivers.checkFullBoxes, real.checkFullBoxes);
  KeepReal(drivers.sendFileMail95, real.sendFileMail95);
  KeepReal(drivers.sendFileMail50, real.sendFileMail50);
  KeepReal(drivers.sendFileMail40, real.sendFileMail40);
  KeepReal(drivers.sendNoticeMail95, real.sendNoticeMail95);
  KeepReal(drivers.sendNoticeMail50, real.sendNoticeMail50);
  KeepReal(drivers.runMainMenu, real.runMainMenu);
  KeepReal(drivers.runToolbarMenu, real.runToolbarMenu);
  KeepReal(drivers.openOutgoingMail40, real.openOutgoingMail40);
  CurrentRunDrivers() = std::move(drivers);
}

ScopedRunDrivers::~ScopedRunDrivers() { CurrentRunDrivers() = std::move(saved_); }

}  // namespace qc
