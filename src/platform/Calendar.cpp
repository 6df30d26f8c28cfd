#include "platform/Calendar.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace qel {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days DayZero = sys_days{std::chrono::year{1899} / 12 / 30};

// Seconds since midnight of day 0, with the date part taken whole: dates before day 0 count their time of day
// forward, as the platform does.
double TotalSeconds(Date date) { return WholeDay(date) * SecondsPerDay + SecondOfDay(date); }

}  // namespace

Date DateSerial(int year, int month, int day) {
  if (year >= 0 && year < 30) year += 2000;
  if (year >= 30 && year < 100) year += 1900;
  const int months = month - 1;
  const int carry = months >= 0 ? months / 12 : (months - 11) / 12;
  year += carry;
  const auto monthOfYear = static_cast<unsigned>(months - carry * 12 + 1);
  if (year < 100 || year > 9999) Raise(InvalidCall);
  const auto first = sys_days{std::chrono::year{year} / static_cast<int>(monthOfYear) / 1};
  const auto result = first + days{day - 1};
  const year_month_day ymd{result};
  if (int(ymd.year()) < 100 || int(ymd.year()) > 9999) Raise(InvalidCall);
  return static_cast<double>((result - DayZero).count());
}

Date TimeSerial(int hour, int minute, int second) {
  return static_cast<double>(hour * 3600 + minute * 60 + second) / SecondsPerDay;
}

Date WholeDay(Date date) {
  // A time within half a second of the next midnight belongs to that day.
  const double whole = std::trunc(date);
  const double seconds = std::round(std::fabs(date - whole) * SecondsPerDay);
  return seconds >= SecondsPerDay ? whole + (date < 0 ? -1 : 1) : whole;
}

int SecondOfDay(Date date) {
  const double seconds = std::round(std::fabs(date - std::trunc(date)) * SecondsPerDay);
  return seconds >= SecondsPerDay ? 0 : static_cast<int>(seconds);
}

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

bool IsLeapYear(int year) { return std::chrono::year{year}.is_leap(); }

int DaysInMonth(int year, int month) {
  static constexpr int Lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : Lengths[month - 1];
}

Date AddSeconds(Date date, double seconds) {
  const double total = TotalSeconds(date) + std::round(seconds);
  const double day = std::floor(total / SecondsPerDay);
  const double time = (total - day * SecondsPerDay) / SecondsPerDay;
  return day < 0 ? day - time : day + time;
}

Date AddMonths(Date date, int months) {
  const CalendarDay from = DayOf(date);
  const CalendarDay first = DayOf(DateSerial(from.year, from.month + months, 1));
  const int day = std::min(from.day, DaysInMonth(first.year, first.month));
  return DateSerial(first.year, first.month, day) + (date - WholeDay(date));
}

Int32 SecondsBetween(Date from, Date to) { return Int32(TotalSeconds(to) - TotalSeconds(from)); }

Int32 DaysBetween(Date from, Date to) { return Int32(WholeDay(to) - WholeDay(from)); }

}  // namespace qel
