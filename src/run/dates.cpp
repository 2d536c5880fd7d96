#include "run/dates.h"

#include <chrono>
#include <cstdio>
#include <ctime>

#include "base/numbers.h"

namespace qc {
namespace {

std::function<CivilDate()>& Source() {
  static std::function<CivilDate()> source;
  return source;
}

CivilDate MachineToday() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
          static_cast<unsigned>(local.tm_mday)};
}

constexpr const char* kDayNames[] = {"sunday",   "monday", "tuesday", "wednesday",
                                     "thursday", "friday", "saturday"};
constexpr const char* kMonthNames[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                       "jul", "aug", "sep", "oct", "nov", "dec"};

}  // namespace

CivilDate Today() { return Source() ? Source()() : MachineToday(); }

void SetTodaySource(std::function<CivilDate()> source) { Source() = std::move(source); }

ScopedToday::ScopedToday(CivilDate date) {
  SetTodaySource([date] { return date; });
}
ScopedToday::~ScopedToday() { SetTodaySource(nullptr); }

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

std::string TodayLong() { return LongDateText(Today()); }
std::string TodayShort() { return ShortDateText(Today()); }

}  // namespace qc
