#include "run/dates.h"

#include <chrono>
#include <cstdio>

#include "base/numbers.h"

namespace qc {
namespace {

constexpr const char* kDayNames[] = {"sunday",   "monday", "tuesday", "wednesday",
                                     "thursday", "friday", "saturday"};
constexpr const char* kMonthNames[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                       "jul", "aug", "sep", "oct", "nov", "dec"};

}  // namespace

std::string LongDateText(CivilDate date) {
  using namespace std::chrono;
  const year_month_day ymd{year{date.year}, month{date.month}, day{date.day}};
  const unsigned dayOfWeek = weekday{sys_days{ymd}}.c_encoding();
  char buf[64];
  std::snprintf(buf, sizeof buf, "%s, %s. %02u, %04d", kDayNames[dayOfWeek],
                kMonthNames[(date.month - 1) % 12], date.day, date.year);
  return Trim(buf);
}

std::string ShortDateText(CivilDate date) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%02u/%02u/%02d", date.month, date.day,
                ((date.year % 100) + 100) % 100);
  return Trim(buf);
}

}  // namespace qc
