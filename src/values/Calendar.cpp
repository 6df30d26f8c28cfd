#include "values/Calendar.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace qel {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days DayZero = sys_days{std::chrono::year{1899} / 12 / 30};

// The time of day in whole seconds. 86400 within half a second of the next midnight, which is that day's.
double RoundedSeconds(Date date) { return std::round(std::fabs(date - std::trunc(date)) * SecondsPerDay); }

// Seconds since midnight of day 0, with the date part taken whole: dates before day 0 count their time of day
// forward, as the platform does.
double TotalSeconds(Date date) { return WholeDay(date) * SecondsPerDay + SecondOfDay(date); }

}  // namespace

Date DateSerial(int year, int month, int day) {
  if (year >= 0 && year < 30) year += 2000;
  if (year >= 30 && year < 100) year += 1900;
  if (year < 100 || year > 9999) Raise(InvalidCall);
  const auto first = std::chrono::year{year} / 1 / 1 + std::chrono::months{month - 1};
  const Date date = static_cast<double>((sys_days{first} + days{day - 1} - DayZero).count());
  if (date < FirstDate || date > LastDate) Raise(InvalidCall);
  return date;
}

Date TimeSerial(int hour, int minute, int second) {
  return static_cast<double>(hour * 3600 + minute * 60 + second) / SecondsPerDay;
}

Date WholeDay(Date date) {
  return std::trunc(date) + std::copysign(std::floor(RoundedSeconds(date) / SecondsPerDay), date);
}

int SecondOfDay(Date date) { return static_cast<int>(RoundedSeconds(date)) % SecondsPerDay; }

CalendarDay DayOf(Date date) {
  const year_month_day ymd{DayZero + days{static_cast<int>(WholeDay(date))}};
  return {int(ymd.year()), static_cast<int>(unsigned(ymd.month())), static_cast<int>(unsigned(ymd.day()))};
}

ClockTime TimeOf(Date date) {
  const int seconds = SecondOfDay(date);
  return {seconds / 3600, seconds / 60 % 60, seconds % 60};
}

int Weekday(Date date) {
  const int days = static_cast<int>(WholeDay(date)) + 5;  // day 0 was a Saturday
  return ((days % 7) + 7) % 7 + 1;
}

int DaysInMonth(int year, int month) {
  const auto last = std::chrono::year{year} / month / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

Date AtTime(Date day, Date time) { return day + std::copysign(time, day); }

Date AddSeconds(Date date, double seconds) {
  const double total = TotalSeconds(date) + std::round(seconds);
  const double day = std::floor(total / SecondsPerDay);
  const double time = (total - day * SecondsPerDay) / SecondsPerDay;
  return AtTime(day, time);
}

Date AddMonths(Date date, int months) {
  const CalendarDay from = DayOf(date);
  const Date first = DateSerial(from.year, from.month + months, 1);
  const CalendarDay month = DayOf(first);
  const int day = std::min(from.day, DaysInMonth(month.year, month.month));
  return first + (day - 1) + (date - WholeDay(date));
}

Int32 SecondsBetween(Date from, Date to) { return Int32(TotalSeconds(to) - TotalSeconds(from)); }

Int32 DaysBetween(Date from, Date to) { return Int32(WholeDay(to) - WholeDay(from)); }

}  // namespace qel
