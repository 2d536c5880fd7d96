#pragma once
// The client operations the tagging run calls, as one replaceable set. The program uses the real
// drivers on the window system in force; tests put in their own entries to record the calls.
#include <cstdint>
#include <functional>
#include <string>

#include "client/address_list.h"

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

// Every entry calls the real routine on CurrentWindowSystem() at the moment of the call.
RunDrivers RealRunDrivers();

// The set in force (the real drivers until replaced).
RunDrivers& CurrentRunDrivers();

// Replaces the set for the lifetime of the object; entries left empty keep the real routine.
class ScopedRunDrivers {
 public:
  explicit ScopedRunDrivers(RunDrivers drivers);
  ~ScopedRunDrivers();
  ScopedRunDrivers(const ScopedRunDrivers&) = delete;
  ScopedRunDrivers& operator=(const ScopedRunDrivers&) = delete;

 private:
  RunDrivers saved_;
};

}  // namespace qc
