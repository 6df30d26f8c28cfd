#include "values/DateFormat.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "values/CodePage.h"
#include "values/DateText.h"
#include "values/Region.h"

namespace qel {

namespace {

enum class Place { Day, Month, Year, Hour, HalfDayHour, Minute, Second, DayHalf };

struct Moment {
  CalendarDay day;
  ClockTime time;
  int weekday;  // 1 is Monday
};

Moment MomentOf(Date date) {
  const Date day = WholeDay(date);
  if (!(day >= FirstDate && day <= LastDate)) Raise(Overflow);
  return {DayOf(date), TimeOf(date), Weekday(date)};
}

void AppendDigits(std::string& text, int number, int width) {
  char digits[4];
  int count = 0;
  for (; number > 0 || count < std::max(width, 1); number /= 10)
    digits[count++] = static_cast<char>('0' + number % 10);
  while (count > 0) text += digits[--count];
}

template <std::size_t Count>
void AppendNamed(std::string& text, int number, int width, const std::array<std::string, Count>& shortNames,
                 const std::array<std::string, Count>& longNames, int index) {
  if (width <= 2)
    AppendDigits(text, number, width);
  else
    text += (width == 3 ? shortNames : longNames)[static_cast<std::size_t>(index - 1)];
}

const std::string& DayHalfMark(int hour) { return hour < 12 ? Region.AM : Region.PM; }

void AppendPlace(std::string& text, const Moment& moment, Place place, int width) {
  const int hour = moment.time.hour;
  switch (place) {
    case Place::Day:
      return AppendNamed(text, moment.day.day, width, Region.ShortDays, Region.LongDays, moment.weekday);
    case Place::Month:
      return AppendNamed(text, moment.day.month, width, Region.ShortMonths, Region.LongMonths,
                         moment.day.month);
    case Place::Year:
      return AppendDigits(text, width <= 2 ? moment.day.year % 100 : moment.day.year, width <= 2 ? width : 4);
    case Place::Hour:
      return AppendDigits(text, hour, width);
    case Place::HalfDayHour:
      return AppendDigits(text, (hour + 11) % 12 + 1, width);
    case Place::Minute:
      return AppendDigits(text, moment.time.minute, width);
    case Place::Second:
      return AppendDigits(text, moment.time.second, width);
    case Place::DayHalf:
      text.append(DayHalfMark(hour), 0, width == 1 ? 1 : std::string::npos);
      return;
  }
}

struct Letter {
  char letter;
  Place place;
  int most;  // the longest run that is one place
};

constexpr Letter PatternLetters[] = {
    {'d', Place::Day, 4},         {'M', Place::Month, 4},  {'y', Place::Year, 4},   {'H', Place::Hour, 2},
    {'h', Place::HalfDayHour, 2}, {'m', Place::Minute, 2}, {'s', Place::Second, 2}, {'t', Place::DayHalf, 2},
};

// In small letters. An "m" behind an hour and an "h" beside a day half mark have their second meaning.
constexpr Letter MaskLetters[] = {
    {'d', Place::Day, 4},  {'m', Place::Month, 4},  {'y', Place::Year, 4},
    {'h', Place::Hour, 2}, {'n', Place::Minute, 2}, {'s', Place::Second, 2},
};

template <std::size_t Count>
const Letter* FindLetter(const Letter (&letters)[Count], char c) {
  const auto* found = std::find_if(letters, letters + Count, [c](const Letter& l) { return l.letter == c; });
  return found == letters + Count ? nullptr : found;
}

char Small(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

char AsItIs(char c) { return c; }

// How often the character at `from` stands there in a row, `fold` making alike what counts as the same.
int RunAt(std::string_view text, std::size_t from, char (*fold)(char)) {
  const std::string_view run = text.substr(from);
  const auto isOther = [&](char c) { return fold(c) != fold(run.front()); };
  return static_cast<int>(std::find_if(run.begin(), run.end(), isOther) - run.begin());
}

std::size_t DayHalfMarkAt(std::string_view mask, std::size_t from) {
  for (const std::string_view mark : {"AMPM", "AM/PM"})
    if (EqualNoCase(mask.substr(from, mark.size()), mark)) return mark.size();
  return 0;
}

bool HasDayHalfMark(std::string_view mask) {
  for (std::size_t i = 0; i < mask.size(); ++i) {
    if (mask[i] == '\\')
      ++i;
    else if (DayHalfMarkAt(mask, i))
      return true;
  }
  return false;
}

class MaskWriter {
 public:
  MaskWriter(Date date, std::string_view mask)
      : date(date), mask(mask), moment(MomentOf(date)), halfDays(HasDayHalfMark(mask)) {}

  std::string Write() {
    for (std::size_t at = 0; at < mask.size();) at += WriteOne(at);
    return std::move(text);
  }

 private:
  // Writes what stands at `at` in the mask and answers how long it is there.
  std::size_t WriteOne(std::size_t at) {
    const char c = Small(mask[at]);
    if (const std::size_t length = DayHalfMarkAt(mask, at)) {
      WriteDayHalf();
      return length;
    }
    if (const std::size_t length = WriteWholeForm(at, c)) return length;
    if (const Letter* letter = FindLetter(MaskLetters, c)) return WritePlace(at, *letter);
    if (c == '\\' && at + 1 < mask.size()) {
      text += mask[at + 1];
      return 2;
    }
    if (c == '/')
      text += Region.DateSeparator;
    else if (c == ':')
      text += Region.TimeSeparator;
    else
      text += mask[at];
    return 1;
  }

  // "ddddd" and "ttttt".
  std::size_t WriteWholeForm(std::size_t at, char c) {
    if ((c != 'd' && c != 't') || RunAt(mask, at, Small) < 5) return 0;
    text += FormatByPattern(date, c == 'd' ? Region.ShortDatePattern : Region.TimePattern);
    return 5;
  }

  std::size_t WritePlace(std::size_t at, const Letter& letter) {
    int width = std::min(RunAt(mask, at, Small), letter.most);
    Place place = letter.place;
    if (place == Place::Year && width != 4) {
      if (width == 1) {
        text += mask[at];
        return 1;
      }
      width = 2;
    }
    if (place == Place::Hour && halfDays) place = Place::HalfDayHour;
    if (place == Place::Month && width <= 2 && afterHour) place = Place::Minute;
    afterHour = letter.place == Place::Hour;
    AppendPlace(text, moment, place, width);
    return static_cast<std::size_t>(width);
  }

  // A region without marks still gets the English ones: hours of 1 to 12 alone would be ambiguous.
  void WriteDayHalf() {
    if (Region.AM == Region.PM)
      text += moment.time.hour < 12 ? "AM" : "PM";
    else
      text += DayHalfMark(moment.time.hour);
  }

  Date date;
  std::string_view mask;
  Moment moment;
  bool halfDays;
  bool afterHour = false;
  std::string text;
};

struct NamedForm {
  std::string_view name;
  const std::string RegionalValues::*pattern;  // regional, or
  std::string_view mask;                       // the same everywhere
};

constexpr NamedForm NamedForms[] = {
    {"Short Date", &RegionalValues::ShortDatePattern, ""},
    {"Long Date", &RegionalValues::LongDatePattern, ""},
    {"Long Time", &RegionalValues::TimePattern, ""},
    {"Medium Date", nullptr, "dd-mmm-yy"},
    {"Medium Time", nullptr, "hh:mm AMPM"},
    {"Short Time", nullptr, "hh:mm"},
};

}  // namespace

std::string FormatByPattern(Date date, std::string_view pattern) {
  const Moment moment = MomentOf(date);
  std::string text;
  bool quoted = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '\'') {
      if (quoted && pattern.substr(i).starts_with("''"))
        text += pattern[i++];
      else
        quoted = !quoted;
      continue;
    }
    const Letter* letter = quoted ? nullptr : FindLetter(PatternLetters, c);
    if (!letter) {
      text += c;
      continue;
    }
    const int width = std::min(RunAt(pattern, i, AsItIs), letter->most);
    AppendPlace(text, moment, letter->place, width);
    i += static_cast<std::size_t>(width - 1);
  }
  return text;
}

std::string FormatDate(Date date, std::string_view mask) {
  for (const auto& form : NamedForms) {
    if (!EqualNoCase(form.name, mask)) continue;
    return form.pattern ? FormatByPattern(date, Region.*form.pattern) : MaskWriter(date, form.mask).Write();
  }
  if (EqualNoCase(mask, "General Date")) return DateText(date);
  return MaskWriter(date, mask).Write();
}

std::string IsoDate(Date date) { return FormatDate(date, "yyyy\\-mm\\-dd"); }

}  // namespace qel
