#include "analysis/TariffDays.h"

#include <algorithm>
#include <array>

#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/Region.h"

namespace qel {

namespace {

using DayNames = std::array<std::string, 7>;

constexpr std::string_view Between = " - ";
constexpr int NoDay = 8;

Int16 PositionIn(const DayNames& names, std::string_view name) {
  const auto found = std::find(names.begin(), names.end(), Trim(name));
  return Int16(found - names.begin() + 1);
}

// 1 to 7, the position of a full day name; 0 when it is none.
int DayIndex(std::string_view longName) {
  const auto& names = Region.LongDays;
  const auto found = std::find(names.begin(), names.end(), longName);
  return found == names.end() ? 0 : static_cast<int>(found - names.begin()) + 1;
}

std::string_view FirstThree(std::string_view text) { return text.substr(0, 3); }
std::string_view LastThree(std::string_view text) {
  return text.substr(text.size() - std::min<std::size_t>(text.size(), 3));
}

// The positions of the first and the last day, 8 for what is no short name.
struct Span {
  Int16 first, last;
  bool Holds(int day) const { return first <= day && last >= day; }
};

// One end of a range: a short name, or a text whose beginning or end is one.
Int16 EndOf(std::string_view name, std::string_view threeLetters) {
  const Int16 whole = GetDayIndex(std::string(name));
  return whole < NoDay ? whole : GetDayIndex(std::string(threeLetters));
}

Span SpanOf(std::string_view days) {
  // How far a single long name reaches is a matter of its own language: "Montag" does not begin with "Mon".
  if (DayIndex(days) > 0)
    return {PositionIn(Region.ShortDays, FirstThree(days)), PositionIn(Region.ShortDays, LastThree(days))};
  const auto between = days.find(Between);
  if (between == std::string_view::npos) return {EndOf(days, FirstThree(days)), EndOf(days, LastThree(days))};
  return {EndOf(days.substr(0, between), FirstThree(days)),
          EndOf(days.substr(between + Between.size()), LastThree(days))};
}

// 1 to 7, the position of a day by its short or full name in the user's language or in English, or 8.
int PositionOf(std::string_view name) {
  const Int16 brief = GetDayIndex(std::string(name));
  if (brief < NoDay) return brief;
  const Int16 full = PositionIn(Region.LongDays, name);
  return full < NoDay ? full : PositionIn(English.LongDays, name);
}

}  // namespace

bool DayMatches(const Settings& settings, Date date, const std::string& appliesDays) {
  if (appliesDays == "Holidays") return IsHoliday(settings, date);
  if (appliesDays == "Everyday") return true;
  const int day = Weekday(date);
  return DayIndex(appliesDays) == day || SpanOf(appliesDays).Holds(day);
}

Int16 GetDayIndex(const std::string& shortName) {
  const Int16 position = PositionIn(Region.ShortDays, shortName);
  return position < NoDay ? position : PositionIn(English.ShortDays, shortName);
}

bool IsHoliday(const Settings& settings, Date date) {
  for (int i = 0; i < settings.UsedHolidays; ++i)
    if (settings.Holidays[i] == date) return true;
  return false;
}

std::string DaysInUsersWords(const std::string& appliesDays) {
  const Span span = SpanOf(appliesDays);
  if (appliesDays.find(Between) == std::string::npos || span.first >= NoDay || span.last >= NoDay)
    return appliesDays;
  const auto nameOf = [](int position) { return Region.ShortDays[static_cast<std::size_t>(position - 1)]; };
  return nameOf(span.first) + std::string(Between) + nameOf(span.last);
}

bool AreKnownDays(const std::string& appliesDays) {
  return appliesDays == "Holidays" || appliesDays == "Everyday" || DayIndex(appliesDays) > 0 ||
         SpanOf(appliesDays).first < NoDay;
}

unsigned DaysNamed(const std::string& appliesDays) {
  if (appliesDays == "Everyday") return 127;
  const auto between = appliesDays.find(Between);
  const int first = PositionOf(appliesDays.substr(0, between));
  const int last =
      between == std::string::npos ? first : PositionOf(appliesDays.substr(between + Between.size()));
  if (first >= NoDay || last >= NoDay) return 0;
  unsigned days = 1u << (last - 1);
  for (int day = first; day != last; day = day % 7 + 1) days |= 1u << (day - 1);
  return days;
}

}  // namespace qel
