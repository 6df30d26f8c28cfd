// From text to dates by the regional order, separators and day half marks; the way back is values/DateText.h.
#pragma once

#include <string_view>

#include "values/Calendar.h"

namespace qel {

// Whether TextToDate takes the text.
bool IsDate(std::string_view text);

// A date, a time of day, or both.
//
// Dates: three numbers in the regional order, divided by "/", "-", ".", blanks or the regional separator (a
// number of three or four digits in the first place is a year, then month and day follow); a month name may
// stand for a number, a weekday name before all; two numbers are day and month of this year by the clock. If
// the regional order makes no date, the other order of day and month is tried. Two-digit years 00 to 29 are
// 2000 to 2029, 30 to 99 are 1930 to 1999.
//
// Times: "h:mm", "h:mm:ss", "h AM", with ":" or the regional separator, with an AM or PM mark, the English
// words included. Where the regional separator could divide a date as well, "10.15" is a time; "10.11.12" is
// one too, unless that separator is also the date's.
//
// Raises 13 (type mismatch) for a text that is none of these or a day that no month has.
Date TextToDate(std::string_view text);

}  // namespace qel
