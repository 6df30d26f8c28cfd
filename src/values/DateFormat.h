// Dates and times by the format mini-language.
#pragma once

#include <string>
#include <string_view>

#include "values/Calendar.h"

namespace qel {

// Formats by a named form, in any case ("Short Date", "Long Date", "Medium Date", "Long Time", "Medium Time",
// "Short Time", "General Date"), or by a mask of these places, in any case; the rest stands for itself:
//
//   d dd ddd dddd   day, day name
//   m mm mmm mmmm   month, month name; m and mm after h or hh are minutes
//   yy yyyy         year
//   h hh n nn s ss  hour, minute, second
//   AMPM AM/PM      the day half's mark; the hours then run from 1 to 12
//   / :             the regional date and time separators
//   ddddd ttttt     the short date, the long time
//   \x              the character x as it stands
//
// Where the region has no marks of the day's halves, a mask that asks for them draws AM and PM.
// Raises 6 (overflow) outside the years 100 to 9999.
std::string FormatDate(Date date, std::string_view mask);

// "1998-10-05". Raises as FormatDate does.
std::string IsoDate(Date date);

// Formats by a pattern of the regional settings ("M/d/yyyy", "dddd, MMMM dd, yyyy", "h:mm:ss tt"), in which
// capital M is the month, small m the minute, H the hour of 24, h that of 12, tt the day half, and a text
// between single quotes stands for itself. Raises 6 (overflow) outside the years 100 to 9999.
std::string FormatByPattern(Date date, std::string_view pattern);

}  // namespace qel
