#pragma once
// The client operations the tagging run calls, as one replaceable set. The program uses the real
// drivers on its window system; tests put in their own entries to record the calls.
#include <cstdint>
#include <functional>
#include <string>

#include "client/address_list.h"
#include "client/window_system.h"

namespace qc {

struct RunDrivers {
  using SendFile = std::function<void(const std::string& to, const std::string& subject,
                                      const std::string& body, const std::string& path,
                                      bool sendLater)>;
  using SendNotice = std::function<void(const std::string& to, const std::string& subject,
                                        const std::string& body)>;

  std::function<std::string()> clientScreenName;
  std::function<std::int16_t()> clientVersion;
  std::function<void(AddressList& list)> checkFullBoxes;
  SendFile sendFileMail95;
  SendFile sendFileMail50;
  SendFile sendFileMail40;
  SendNotice sendNoticeMail95;
  SendNotice sendNoticeMail50;
  std::function<void(const std::string& itemText)> runMainMenu;
  std::function<void(std::int16_t iconIndex, std::int16_t downCount)> runToolbarMenu;
  std::function<void()> openOutgoingMail40;
};

// Every entry calls the real routine on `ws`.
RunDrivers RealRunDrivers(WindowSystem& ws);

}  // namespace qc
