#include "platform/DateConversion.h"

#include <array>
#include <optional>

#include "platform/CodePage.h"
#include "platform/DateReader.h"
#include "platform/FormatMask.h"
#include "platform/Regional.h"

namespace qel {

namespace {

// Tried in this order. A time separator that divides dates too leaves "10.11.12" to the dates, "10.15" to the
// times.
constexpr std::array OwnSeparator = {TimeReading::AllParts, TimeReading::ColonOnly};
constexpr std::array SharedSeparator = {TimeReading::TwoParts, TimeReading::ColonOnly, TimeReading::AllParts};

template <std::size_t Count>
std::optional<Date> ReadBy(std::string_view text, const std::array<TimeReading, Count>& readings) {
  for (const TimeReading reading : readings)
    if (const auto date = DateReader(text, reading).Read()) return date;
  return std::nullopt;
}

std::optional<Date> ReadDate(std::string_view text) {
  const bool shared = TimeDivider() == Trim(Region.DateSeparator);
  return shared ? ReadBy(text, SharedSeparator) : ReadBy(text, OwnSeparator);
}

// The text behind the name of a weekday and its comma; the whole text where it does not begin with one.
std::string_view BehindWeekday(std::string_view text) {
  for (const auto* names : {&Region.LongDays, &Region.ShortDays}) {
    for (const std::string& name : *names) {
      if (name.empty() || !EqualNoCase(text.substr(0, name.size()), name)) continue;
      const std::string_view behind = text.substr(name.size());
      const std::size_t end = behind.find_first_not_of("., ");
      if (end != 0 && end != std::string_view::npos) return behind.substr(end);
    }
  }
  return text;
}

// Some weekdays are abbreviated as some months are, so the name of a month is tried first.
std::optional<Date> DateIn(std::string_view text) {
  text = Trim(text);
  const auto date = ReadDate(text);
  return date ? date : ReadDate(BehindWeekday(text));
}

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

bool IsDate(std::string_view text) { return DateIn(text).has_value(); }

Date TextToDate(std::string_view text) {
  const auto date = DateIn(text);
  if (!date) Raise(TypeMismatch);
  return *date;
}

std::string DateText(Date date) {
  if (WholeDay(date) == 0) return TimeText(date);
  std::string text = FormatByPattern(date, Region.ShortDatePattern);
  if (SecondOfDay(date) != 0) text.append(" ").append(TimeText(date));
  return text;
}

}  // namespace qel
