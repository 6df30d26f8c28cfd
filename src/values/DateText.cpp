#include "values/DateText.h"

#include <string_view>

#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/DatePattern.h"
#include "values/DateReader.h"
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

std::string TimeText(Date date) {
  const std::string& pattern = Region.TimePattern;
  const bool halves =
      pattern.find('h') != std::string::npos && pattern.find('t') != std::string::npos && HasDayHalfMarks();
  const bool padded = pattern.find("hh") != std::string::npos || pattern.find("HH") != std::string::npos;
  const std::string hour(padded ? 2 : 1, halves ? 'h' : 'H');
  const std::string separator = Quoted(SeparatorOfTimes());
  return FormatByPattern(date, hour + separator + "mm" + separator + "ss" + (halves ? " tt" : ""));
}

}  // namespace

std::string DateText(Date date) {
  if (WholeDay(date) == 0) return TimeText(date);
  std::string text = FormatByPattern(date, Region.ShortDatePattern);
  if (SecondOfDay(date) != 0) text.append(" ").append(TimeText(date));
  return text;
}

}  // namespace qel
