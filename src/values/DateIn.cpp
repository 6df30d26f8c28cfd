#include <array>
#include <optional>

#include "values/CodePage.h"
#include "values/DateReader.h"
#include "values/Region.h"

namespace qel {

namespace {

// Tried in this order. A time separator that divides dates too leaves "10.11.12" to the dates, "10.15" to the
// times.
constexpr std::array OwnSeparator = {TimeReading::AllParts, TimeReading::ColonOnly};
constexpr std::array SharedSeparator = {TimeReading::TwoParts, TimeReading::ColonOnly, TimeReading::AllParts};

template <std::size_t Count>
std::optional<Date> ReadBy(std::string_view text, int thisYear,
                           const std::array<TimeReading, Count>& readings) {
  for (const TimeReading reading : readings)
    if (const auto date = DateReader(text, reading, thisYear).Read()) return date;
  return std::nullopt;
}

std::optional<Date> ReadDate(std::string_view text, int thisYear) {
  const bool shared = TimeDivider() == Trim(Region.DateSeparator);
  return shared ? ReadBy(text, thisYear, SharedSeparator) : ReadBy(text, thisYear, OwnSeparator);
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

}  // namespace

// Some weekdays are abbreviated as some months are, so the name of a month is tried first.
std::optional<Date> DateIn(std::string_view text, int thisYear) {
  text = Trim(text);
  const auto date = ReadDate(text, thisYear);
  return date ? date : ReadDate(BehindWeekday(text), thisYear);
}

}  // namespace qel
