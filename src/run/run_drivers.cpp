#include "run/run_drivers.h"

#include "client/client_commands.h"
#include "client/compose_mail.h"
#include "client/full_box.h"
#include "client/window_routines.h"
#include "client/window_system.h"
#include "client/write_mail.h"

namespace qc {

RunDrivers RealRunDrivers() {
  // The program's texts go to the drivers in the code page, and the screen name comes back.
  RunDrivers d;
  d.clientScreenName = [] { return FromCodePage(ClientScreenName(CurrentWindowSystem())); };
  d.clientVersion = [] { return ClientVersion(CurrentWindowSystem()); };
  d.checkFullBoxes = [](AddressList& list) { CheckFullBoxes(CurrentWindowSystem(), list); };
  const auto file = [](auto driver) {
    return [driver](const std::string& to, const std::string& subject, const std::string& body,
                    const std::string& path, bool sendLater) {
      driver(CurrentWindowSystem(), ToCodePage(to), ToCodePage(subject), ToCodePage(body),
             ToCodePage(path), sendLater);
    };
  };
  const auto notice = [](auto driver) {
    return [driver](const std::string& to, const std::string& subject, const std::string& body) {
      driver(CurrentWindowSystem(), ToCodePage(to), ToCodePage(subject), ToCodePage(body));
    };
  };
  d.sendFileMail95 = file(SendFileMail95);
  d.sendFileMail50 = file(SendFileMail50);
  d.sendFileMail40 = file(SendFileMail40);
  d.sendNoticeMail95 = notice(SendNoticeMail95);
  d.sendNoticeMail50 = notice(SendNoticeMail50);
  d.runMainMenu = [](const std::string& itemText) {
    RunMainMenu(CurrentWindowSystem(), ToCodePage(itemText));
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
