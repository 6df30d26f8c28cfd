// A date as text by the regional forms, to be read again.
#pragma once

#include <string>

#include "values/Calendar.h"

namespace qel {

// The text of a date by the regional forms: the short date, the time with its seconds, or both with a blank
// between. A time of day without days is the time alone. TextToDate gives the same time of day
// back, and the same day where the short date keeps the year: a time whose regional separator is the date's
// is written with ":". Raises 6 (overflow) outside the years 100 to 9999.
std::string DateText(Date date);

}  // namespace qel
