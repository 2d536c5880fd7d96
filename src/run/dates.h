#pragma once
// Today's date as the run and its log write it. "Today" comes through one seam so that tests fix
// the date.
#include <functional>
#include <string>

namespace qc {

struct CivilDate {
  int year = 1999;
  unsigned month = 1;  // 1 .. 12
  unsigned day = 1;    // 1 .. 31
};

// The local date of the machine, or what a test installed.
CivilDate Today();

// Installs where "today" comes from; an empty function restores the machine's date.
void SetTodaySource(std::function<CivilDate()> source);

// Fixes today's date for the lifetime of the object.
class ScopedToday {
 public:
  explicit ScopedToday(CivilDate date);
  ~ScopedToday();
  ScopedToday(const ScopedToday&) = delete;
  ScopedToday& operator=(const ScopedToday&) = delete;
};

// "friday, jan. 01, 1999": full day name, short month name with a full stop, two-digit day,
// four-digit year, all lower case.
std::string LongDateText(CivilDate date);
// "01/02/99": month, day, two-digit year.
std::string ShortDateText(CivilDate date);

std::string TodayLong();
std::string TodayShort();

}  // namespace qc
