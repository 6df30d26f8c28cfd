#include "values/DateReader.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

#include "values/CodePage.h"
#include "values/DatePattern.h"
#include "values/Region.h"

namespace qel {

namespace {

// Every byte of the upper half counts as a letter: it can only be part of a name.
bool IsLetter(char c) { return (c & 0x80) != 0 || std::isalpha(c) != 0; }

bool CanDivide(std::string_view separator) {
  return !separator.empty() &&
         std::none_of(separator.begin(), separator.end(), [](char c) { return IsDigit(c) || c == ' '; });
}

// The regional order of day, month and year.
struct Order {
  bool dayFirst;          // day before month
  std::size_t yearPlace;  // 0 to 2
};

Order RegionalOrder() {
  std::string letters;
  for (const DatePlace& place : DatePlacesOf(Region.ShortDatePattern))
    if (letters.find(place.Letter) == std::string::npos) letters += place.Letter;
  return {letters.find('d') < letters.find('M'), std::min<std::size_t>(letters.find('y'), 2)};
}

}  // namespace

std::string_view TimeDivider() {
  return CanDivide(Region.TimeSeparator) ? std::string_view(Region.TimeSeparator) : ":";
}

bool HasDayHalfMarks() {
  const auto isWord = [](const std::string& mark) {
    return !mark.empty() && IsLetter(mark.front()) && mark.back() != ' ';
  };
  return isWord(Region.AM) && isWord(Region.PM) && !EqualNoCase(Region.AM, Region.PM);
}

std::optional<Date> DateReader::Read() {
  while (!rest.empty()) {
    if (afterBlank && ReadTime()) continue;
    if (!ReadPiece()) return std::nullopt;
    ReadDivider();
  }
  if (divider != 0 && divider != '.') return std::nullopt;
  if (count == 0) return time;
  const bool timeInside = time && piecesBeforeTime != 0 && piecesBeforeTime != count;
  if (count == 1 || timeInside) return std::nullopt;
  const auto date = DateOfPieces();
  if (!date || !time) return date;
  return AtTime(*date, *time);
}

void DateReader::SkipBlanks() {
  while (Take(" ")) afterBlank = true;
}

bool DateReader::Take(std::string_view text) {
  if (text.empty() || !EqualNoCase(rest.substr(0, text.size()), text)) return false;
  rest.remove_prefix(text.size());
  afterBlank = false;
  return true;
}

// A whole word: no letter follows.
bool DateReader::TakeWord(std::string_view word) {
  const DateReader before = *this;
  if (!Take(word)) return false;
  if (rest.empty() || !IsLetter(rest.front())) return true;
  *this = before;
  return false;
}

std::optional<DateReader::Piece> DateReader::TakeNumber() {
  Piece piece;
  while (!rest.empty() && IsDigit(rest.front())) {
    if (++piece.digits > 4) return std::nullopt;
    piece.value = piece.value * 10 + (rest.front() - '0');
    rest.remove_prefix(1);
    afterBlank = false;
  }
  if (piece.digits == 0) return std::nullopt;
  return piece;
}

// The month whose name stands here, an abbreviation's full stop included.
std::optional<DateReader::Piece> DateReader::TakeMonthName() {
  const auto take = [this](std::string_view name) {
    if (name.ends_with('.')) name.remove_suffix(1);
    return TakeWord(name);
  };
  for (std::size_t month = 0; month < English.LongMonths.size(); ++month) {
    const std::string_view english = English.LongMonths[month];
    if (take(Region.LongMonths[month]) || take(Region.ShortMonths[month]) || take(english) ||
        take(english.substr(0, 3))) {
      Take(".");
      return Piece{static_cast<int>(month) + 1, 0};
    }
  }
  return std::nullopt;
}

// Whether the mark that stands here is that of the afternoon; nothing where none stands.
std::optional<bool> DateReader::TakeDayHalf() {
  if (HasDayHalfMarks()) {
    if (TakeWord(Region.AM)) return false;
    if (TakeWord(Region.PM)) return true;
  }
  if (TakeWord("AM")) return false;
  if (TakeWord("PM")) return true;
  return std::nullopt;
}

// Reads a whole time of day, or nothing at all.
bool DateReader::ReadTime() {
  const DateReader before = *this;
  if (ReadTimeParts()) return true;
  *this = before;
  return false;
}

bool DateReader::ReadTimeParts() {
  if (time || (divider != 0 && divider != ',' && divider != '.')) return false;
  auto afternoon = TakeDayHalf();
  SkipBlanks();

  std::array<Piece, 3> parts{};
  std::size_t used = 0;
  bool byRegionalDivider = false;
  for (bool more = true; more;) {
    const auto part = TakeNumber();
    if (!part || part->digits > 2 || used == parts.size()) return false;
    parts[used++] = *part;
    const bool regional = reading != TimeReading::ColonOnly && !rest.starts_with(':');
    more = Take(regional ? TimeDivider() : ":");
    byRegionalDivider |= more && regional;
  }
  if (used == 3 && byRegionalDivider && reading == TimeReading::TwoParts) return false;

  SkipBlanks();
  if (!afternoon) afternoon = TakeDayHalf();
  SkipBlanks();
  if (!rest.empty() && !afterBlank) return false;
  const auto [hour, minute, second] = parts;
  if (used == 1 && !afternoon) return false;
  if (hour.value > (afternoon ? 12 : 23) || minute.value > 59 || second.value > 59) return false;
  const int hours = afternoon ? hour.value % 12 + (*afternoon ? 12 : 0) : hour.value;
  time = TimeSerial(hours, minute.value, second.value);
  piecesBeforeTime = count;
  divider = 0;
  return true;
}

// Reads a number or the name of a month. The pieces of a date stand together, before the time or behind it.
bool DateReader::ReadPiece() {
  if (count == pieces.size() || (time && piecesBeforeTime > 0)) return false;
  auto piece = TakeMonthName();
  if (!piece) piece = TakeNumber();
  if (!piece) return false;
  pieces[count++] = *piece;
  commaBetween |= divider == ',';
  divider = 0;
  return true;
}

void DateReader::ReadDivider() {
  SkipBlanks();
  const std::string_view regional = Trim(Region.DateSeparator);
  for (const std::string_view mark : {CanDivide(regional) ? regional : "/", std::string_view("/"),
                                      std::string_view("-"), std::string_view("."), std::string_view(",")}) {
    if (!Take(mark)) continue;
    divider = mark.front();
    SkipBlanks();
    return;
  }
}

std::optional<Date> DateReader::DateOfPieces() const {
  std::size_t name = count;
  for (std::size_t i = 0; i < count; ++i) {
    if (pieces[i].digits > 0) continue;
    if (name != count) return std::nullopt;
    name = i;
  }
  const bool named = name != count;
  if (commaBetween && !named) return std::nullopt;

  Places places = named ? PlacesBesideName(name) : PlacesOfNumbers();
  if (const auto date = DateAt(places)) return date;
  if (!named)
    std::swap(places.day, places.month);
  else if (places.year)
    std::swap(places.day, *places.year);
  return DateAt(places);
}

DateReader::Places DateReader::PlacesBesideName(std::size_t name) const {
  const std::size_t first = name == 0 ? 1 : 0;
  if (count == 2) return {first, name, std::nullopt};
  const std::size_t last = name == 2 ? 1 : 2;
  if (RegionalOrder().yearPlace == 0) return {last, name, first};
  return {first, name, last};
}

DateReader::Places DateReader::PlacesOfNumbers() const {
  const Order order = RegionalOrder();
  if (count == 2) return order.dayFirst ? Places{0, 1, std::nullopt} : Places{1, 0, std::nullopt};
  std::size_t year = order.yearPlace;
  if (pieces[0].digits > 2) year = 0;
  if (pieces[2].digits > 2) year = 2;
  const std::size_t first = year == 0 ? 1 : 0;
  const std::size_t last = year == 2 ? 1 : 2;
  // A region that does not begin with the year has no order of its own for what follows one: then it is the
  // international one.
  const bool dayFirst = order.dayFirst && (year != 0 || order.yearPlace == 0);
  return dayFirst ? Places{first, last, year} : Places{last, first, year};
}

std::optional<Date> DateReader::DateAt(const Places& places) const {
  const Piece& day = pieces[places.day];
  const Piece& month = pieces[places.month];
  int year = thisYear;
  if (places.year) {
    const Piece& written = pieces[*places.year];
    if (written.digits > 2 && written.value < 100) return std::nullopt;
    year = DayOf(DateSerial(written.value, 1, 1)).year;
  }
  if (day.digits > 2 || month.digits > 2) return std::nullopt;
  if (month.value < 1 || month.value > 12 || day.value < 1 || day.value > DaysInMonth(year, month.value))
    return std::nullopt;
  return DateSerial(year, month.value, day.value);
}

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
