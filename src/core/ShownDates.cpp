#include "core/ShownDates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/Surroundings.h"
#include "platform/TextToDate.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/DatePattern.h"
#include "values/DateText.h"
#include "values/NumberConversion.h"
#include "values/Region.h"

namespace qel {

namespace {

using ThreeParts = std::array<std::string, 3>;

// The three parts of a text around the first and the second separator.
std::optional<ThreeParts> SplitInThree(const std::string& text, const std::string& separator) {
  if (separator.empty()) return std::nullopt;
  const auto first = text.find(separator);
  if (first == std::string::npos) return std::nullopt;
  const auto second = text.find(separator, first + separator.size());
  if (second == std::string::npos) return std::nullopt;
  return ThreeParts{text.substr(0, first),
                    text.substr(first + separator.size(), second - first - separator.size()),
                    text.substr(second + separator.size())};
}

bool MonthsHaveThreeLetters() {
  return std::all_of(Region.ShortMonths.begin(), Region.ShortMonths.end(),
                     [](const std::string& name) { return name.size() == 3 && !name.ends_with('.'); });
}

// The short date as a field takes it, part by part: its places in their order, two digits of day and month. A
// month goes by its name where all names are of the same length. Nothing for a pattern that is not of day,
// month and year.
std::optional<ThreeParts> FieldParts() {
  const auto places = DatePlacesIn(Region.ShortDatePattern);
  if (!places) return std::nullopt;
  ThreeParts parts;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto [letter, width] = (*places)[i];
    const bool named = letter == 'M' && width == 3 && MonthsHaveThreeLetters();
    parts[i].assign(letter == 'y' && width > 2 ? 4 : named ? 3 : 2, letter);
  }
  return parts;
}

std::string Joined(const ThreeParts& parts) {
  return parts[0] + Region.DateSeparator + parts[1] + Region.DateSeparator + parts[2];
}

std::string MaskPart(const std::string& part) {
  if (part == "yyyy") return "####";
  return part == "MMM" ? "AAA" : "##";
}

}  // namespace

std::string DateMask() {
  const auto parts = FieldParts().value_or(ThreeParts{});
  return Joined({MaskPart(parts[0]), MaskPart(parts[1]), MaskPart(parts[2])});
}

std::string format_date(const std::string& dateText, const std::string& separator) {
  const std::string& divider = separator.empty() ? Region.DateSeparator : separator;
  TraceStep(dateText + " " + divider);
  // The parts of such a short date fit the field one by one; those of any other do not.
  const bool inParts = HasOneSeparator(Region.ShortDatePattern);
  auto parts = SplitInThree(dateText, divider);
  if (!inParts && IsDate(dateText)) return format_date(TextToDate(dateText));
  if (!parts) return FormatDate(TextToDate(dateText), "Short Date");
  std::string& last = (*parts)[2];
  if (last.ends_with(divider)) last.erase(last.size() - divider.size());
  return Joined({PadLeft((*parts)[0], '0', 2), PadLeft((*parts)[1], '0', 2), PadLeft(last, '0', 2)});
}

std::string format_date(Date date) {
  auto parts = FieldParts();
  if (!parts) return format_date(DateText(WholeDay(date)));
  for (std::string& part : *parts) part = FormatByPattern(date, part);
  return Joined(*parts);
}

std::string TimeFormat(bool forceAMPM) {
  const std::string& divider = Region.TimeSeparator;
  return forceAMPM ? "h" + divider + "mm" + divider + "ss AMPM" : "Long Time";
}

std::string MomentText(Date date, Date time, bool forceAMPM) {
  return FormatDate(date, "Short Date") + " " + FormatDate(time, TimeFormat(forceAMPM));
}

std::string FormatTime(float seconds, bool noHours) {
  double rest = seconds;
  const auto takeWhole = [&rest](double unit) {
    if (rest < unit) return 0.0;
    const double whole = std::floor(rest / unit);
    rest -= whole * unit;
    return whole;
  };
  const double hours = takeWhole(3600);
  const double minutes = takeWhole(60);
  const auto twoDigits = [](double value) { return PadLeft(NumberText(std::trunc(value)), '0', 2); };
  const std::string tail = twoDigits(minutes) + Region.TimeSeparator + twoDigits(rest);
  return noHours ? tail : twoDigits(hours) + Region.TimeSeparator + tail;
}

}  // namespace qel
