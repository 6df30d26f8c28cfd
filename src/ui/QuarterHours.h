// Times of day as lists offer them: one for each quarter of an hour, in 24 hours, regional separator between.
#pragma once

#include <string>
#include <vector>

#include "values/Calendar.h"

namespace qel {

// A segment of the day ends on the last minute of a quarter: 14 minutes behind its beginning.
inline constexpr int LastMinuteOfQuarter = 14;

// The times of a list lie `minutes` behind the beginnings of the quarters: 0 for "00:00" to "23:45",
// LastMinuteOfQuarter for "00:14" to "23:59". Entries count from 0 to 95.
std::vector<std::string> QuarterHours(int minutes = 0);
Date QuarterHour(int entry, int minutes = 0);

// A time of day in the form of these lists; the date is left out.
std::string QuarterHourText(Date time);

}  // namespace qel
