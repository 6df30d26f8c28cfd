#include "values/DateText.h"

#include <string_view>

#include "values/CodePage.h"
#include "values/DateReader.h"
#include "values/FormatMask.h"
#include "values/Region.h"

namespace qel {

namespace {

// The region's separator, unless a time written with it would read as a date.
std::string_view SeparatorOfTimes() {
  const std::string_view divider = TimeDivider();
  const bool dividesDates =
      divider == Trim(Region.DateSeparator) || Region.ShortDatePattern.find(divider) != std::string::npos;
  return dividesDates ? ":" : divider;
}

void AppendTwoDigits(std::string& text, int number) {
  text += static_cast<char>('0' + number / 10);
  text += static_cast<char>('0' + number % 10);
}

std::string TimeText(Date date) {
  const std::string& pattern = Region.TimePattern;
  const bool halves =
      pattern.find('h') != std::string::npos && pattern.find('t') != std::string::npos && HasDayHalfMarks();
  const ClockTime time = TimeOf(date);
  const int hour = halves ? (time.hour + 11) % 12 + 1 : time.hour;
  const bool padded = pattern.find("hh") != std::string::npos || pattern.find("HH") != std::string::npos;

  std::string text;
  if (padded)
    AppendTwoDigits(text, hour);
  else
    text += std::to_string(hour);
  for (const int part : {time.minute, time.second}) {
    text += SeparatorOfTimes();
    AppendTwoDigits(text, part);
  }
  if (halves) text.append(" ").append(time.hour < 12 ? Region.AM : Region.PM);
  return text;
}

}  // namespace

std::string DateText(Date date) {
  if (WholeDay(date) == 0) return TimeText(date);
  std::string text = FormatByPattern(date, Region.ShortDatePattern);
  if (SecondOfDay(date) != 0) text.append(" ").append(TimeText(date));
  return text;
}

}  // namespace qel
