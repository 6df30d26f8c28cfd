// Between text and dates by the regional order, separators and day half marks.
#pragma once

#include <string>
#include <string_view>

#include "platform/Calendar.h"

namespace qel {

// Whether TextToDate takes the text.
bool IsDate(std::string_view text);

// A date, a time of day, or both. Dates: three numbers in the regional order, divided by "/", "-", ".",
// blanks or the regional separator (a number of three or four digits in the first place is a year); a month
// name may stand for a number; two numbers are day and month of this year. If the regional order makes no
// date, the other order of day and month is tried. Two-digit years 00 to 29 are 2000 to 2029, 30 to 99 are
// 1930 to 1999. Times: "h:mm", "h:mm:ss", "h AM", with an AM or PM mark, the English words included. Raises
// 13 (type mismatch) for a text that is none of these or a day that no month has.
Date TextToDate(std::string_view text);

// The text of a date by the regional forms: the short date, the time with its seconds, or both with a blank
// between. A time of day alone (whole part 0) is the time alone. TextToDate gives the same time of day back.
std::string DateText(Date date);

}  // namespace qel
