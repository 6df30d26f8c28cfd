// Dates as day numbers: a double, day 0 being 30 December 1899, the fraction being the time of day.
// A time of day alone has no days. Times are built as seconds / 86400, so equal clock times are equal
// doubles; differences in seconds are rounded to whole seconds.
#pragma once

#include "values/CheckedInteger.h"

namespace qel {

using Date = double;

inline constexpr int SecondsPerDay = 86400;

inline constexpr Date FirstDate = -657434;  // 1 January 100
inline constexpr Date LastDate = 2958465;   // 31 December 9999

struct CalendarDay {
  int year, month, day;  // month 1 to 12, day 1 to 31
};

struct ClockTime {
  int hour, minute, second;  // hour 0 to 23
};

// The date of a year, month and day with the usual carry: month 13 is January of the next year, day 0 the
// last day of the month before. Years 0 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999. Raises 5
// (invalid call) for a year or a day outside the years 100 to 9999.
Date DateSerial(int year, int month, int day);

// The time of day of hours, minutes and seconds, which may run past a day.
Date TimeSerial(int hour, int minute, int second);

// The parts of a date of the years 100 to 9999. A time within half a second of the next midnight is that
// midnight, here as in all that follows.
CalendarDay DayOf(Date date);
ClockTime TimeOf(Date date);

// The date without its time, and the time of day without its date, in seconds: 0 to 86399.
Date WholeDay(Date date);
int SecondOfDay(Date date);

// 1 is Monday, 7 is Sunday.
int Weekday(Date date);
int DaysInMonth(int year, int month);  // month 1 to 12

// The date of a whole day and a time of day, which counts forward before day 0 too.
Date AtTime(Date day, Date time);

// Rounds to whole seconds.
Date AddSeconds(Date date, double seconds);

// The same day and time `months` later, limited to that month's last day. Raises 5 as DateSerial.
Date AddMonths(Date date, int months);

// Whole seconds and whole days from `from` to `to`; negative when `to` is earlier. Days count midnights
// passed. Raise 6 (overflow) beyond 32 bits.
Int32 SecondsBetween(Date from, Date to);
Int32 DaysBetween(Date from, Date to);

}  // namespace qel
