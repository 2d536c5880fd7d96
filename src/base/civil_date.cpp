#include "base/civil_date.h"

#include <ctime>

namespace qc {

CivilDate MachineToday() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return {local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
          static_cast<unsigned>(local.tm_mday)};
}

}  // namespace qc
