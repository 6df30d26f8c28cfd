#include "core/GeneralFunctions.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/CurrencyFormat.h"
#include "core/ProgramState.h"
#include "platform/DateConversion.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/DatePattern.h"
#include "values/DateText.h"
#include "values/FormatMask.h"
#include "values/NumberConversion.h"
#include "values/Region.h"

namespace qel {

std::string DateMask;
std::array<std::string, 7> ShortDayNames, LongDayNames;

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
  const auto places = DatePlacesIn(ShortDatePattern);
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
  return parts[0] + DateSeparator + parts[1] + DateSeparator + parts[2];
}

std::string MaskPart(const std::string& part) {
  if (part == "yyyy") return "####";
  return part == "MMM" ? "AAA" : "##";
}

}  // namespace

void BuildDateMask() {
  const auto parts = FieldParts().value_or(ThreeParts{});
  DateMask = Joined({MaskPart(parts[0]), MaskPart(parts[1]), MaskPart(parts[2])});
}

void BuildDayNames() {
  const Date monday = DateSerial(1998, 10, 5);
  for (std::size_t i = 0; i < 7; ++i) {
    ShortDayNames[i] = FormatDate(monday + static_cast<double>(i), "ddd");
    LongDayNames[i] = FormatDate(monday + static_cast<double>(i), "dddd");
  }
}

std::string format_date(const std::string& dateText, const std::string& separator) {
  const std::string& divider = separator.empty() ? DateSeparator : separator;
  StepTrace = dateText + " " + divider;
  // The parts of such a short date fit the field one by one; those of any other do not.
  const bool inParts = HasOneSeparator(ShortDatePattern);
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
  const std::string tail = twoDigits(minutes) + TimeSeparator + twoDigits(rest);
  return noHours ? tail : twoDigits(hours) + TimeSeparator + tail;
}

std::string Format_Dplaces(const std::string& text, Int16 places) {
  if (!IsNumber(text)) return "";
  return FormatNumber(TextToNumber(text), AmountMask(CurrencyDigits, places));
}

double XVal(const std::string& text) {
  const auto decimal = text.find(NumberDecimal);
  const auto thousand = NumberThousand.empty() ? std::string::npos : text.find(NumberThousand);
  if (thousand != std::string::npos && decimal < thousand) return Val(text);
  std::string plain;
  for (std::size_t i = 0; i < text.size();) {
    if (i == decimal && !NumberDecimal.empty()) {
      plain += ".";
      i += NumberDecimal.size();
    } else if (i < decimal && !NumberThousand.empty() &&
               text.compare(i, NumberThousand.size(), NumberThousand) == 0) {
      i += NumberThousand.size();
    } else {
      plain += text[i++];
    }
  }
  return Val(plain);
}

bool FileExists(const std::string& path) { return !path.empty() && PathExists(path) && !IsFolder(path); }

std::string PadLeft(const std::string& text, char pad, Int16 width) {
  const std::string trimmed(Trim(text));
  const auto wanted = static_cast<std::size_t>(std::max<int>(width, 0));
  return trimmed.size() >= wanted ? trimmed : std::string(wanted - trimmed.size(), pad) + trimmed;
}

Int16 DayIndex(const std::string& longName) {
  const auto found = std::find(LongDayNames.begin(), LongDayNames.end(), longName);
  return found == LongDayNames.end() ? Int16(0) : Int16(found - LongDayNames.begin() + 1);
}

std::string FileNamePart(const std::string& path) { return path.substr(path.rfind(PathSeparator) + 1); }

std::string FolderPart(const std::string& path) { return path.substr(0, path.rfind(PathSeparator) + 1); }

std::string TextBefore(const std::string& text, const std::string& mark) {
  return text.substr(0, text.find(mark));
}

}  // namespace qel
