#include "client/run_drivers.h"

#include "client/client_commands.h"
#include "client/compose_mail.h"
#include "client/full_box.h"
#include "client/window_routines.h"
#include "client/window_system.h"
#include "client/write_mail.h"

namespace qc {

RunDrivers RealRunDrivers(WindowSystem& ws) {
  // The program's texts go to the drivers in the code page, and the screen name comes back.
  RunDrivers d;
  d.clientScreenName = [&ws] { return FromCodePage(ClientScreenName(ws)); };
  d.clientVersion = [&ws] { return ClientVersion(ws); };
  d.checkFullBoxes = [&ws](AddressList& list) { CheckFullBoxes(ws, list); };
  const auto file = [&ws](auto driver) {
    return [&ws, driver](const std::string& to, const std::string& subject, const std::string& body,
                         const std::string& path, bool sendLater) {
      driver(ws, ToCodePage(to), ToCodePage(subject), ToCodePage(body), ToCodePage(path),
             sendLater);
    };
  };
  const auto notice = [&ws](auto driver) {
    return
        [&ws, driver](const std::string& to, const std::string& subject, const std::string& body) {
          driver(ws, ToCodePage(to), ToCodePage(subject), ToCodePage(body));
        };
  };
  d.sendFileMail95 = file(SendFileMail95);
  d.sendFileMail50 = file(SendFileMail50);
  d.sendFileMail40 = file(SendFileMail40);
  d.sendNoticeMail95 = notice(SendNoticeMail95);
  d.sendNoticeMail50 = notice(SendNoticeMail50);
  d.runMainMenu = [&ws](const std::string& itemText) { RunMainMenu(ws, ToCodePage(itemText)); };
  d.runToolbarMenu = [&ws](std::int16_t iconIndex, std::int16_t downCount) {
    RunToolbarMenu(ws, iconIndex, downCount);
  };
  d.openOutgoingMail40 = [&ws] { OpenOutgoingMail40(ws); };
  return d;
}

}  // namespace qc
