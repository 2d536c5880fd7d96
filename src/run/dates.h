#pragma once
// Dates as the run and its log write them.
#include <string>

#include "base/civil_date.h"

namespace qc {

// "friday, jan. 01, 1999": full day name, short month name with a full stop, two-digit day,
// four-digit year, all lower case.
std::string LongDateText(CivilDate date);
// "01/02/99": month, day, two-digit year.
std::string ShortDateText(CivilDate date);

}  // namespace qc
