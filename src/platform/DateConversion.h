// Between text and dates by the regional order, separators and day half marks.
#pragma once

#include <string>
#include <string_view>

#include "platform/Calendar.h"

namespace qel {

// Whether TextToDate takes the text.
bool IsDate(std::string_view text);

// A date, a time of day, or both.
//
// Dates: three numbers in the regional order, divided by "/", "-", ".", blanks or the regional separator (a
// number of three or four digits in the first place is a year, then month and day follow); a month name may
// stand for a number, a weekday name before all; two numbers are day and month of this year. If the regional
// order makes no date, the other order of day and month is tried. Two-digit years 00 to 29 are 2000 to 2029,
// 30 to 99 are 1930 to 1999.
//
// Times: "h:mm", "h:mm:ss", "h AM", with ":" or the regional separator, with an AM or PM mark, the English
// words included. Where the regional separator could divide a date as well, "10.15" is a time; "10.11.12" is
// one too, unless that separator is also the date's.
//
// Raises 13 (type mismatch) for a text that is none of these or a day that no month has.
Date TextToDate(std::string_view text);

// The text of a date by the regional forms: the short date, the time with its seconds, or both with a blank
// between. A time of day without days is the time alone. TextToDate gives the same time of day
// back, and the same day where the short date keeps the year: a time whose regional separator is the date's
// is written with ":". Raises 6 (overflow) outside the years 100 to 9999.
std::string DateText(Date date);

}  // namespace qel
