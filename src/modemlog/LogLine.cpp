#include "modemlog/LogLine.h"

#include <algorithm>

#include "platform/TextToDate.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// The value of `count` digits at `position`, or -1 where they are not all digits.
int DigitsAt(std::string_view text, std::size_t position, std::size_t count) {
  if (text.size() < position + count) return -1;
  int value = 0;
  for (std::size_t i = position; i < position + count; ++i) {
    if (!IsDigit(text[i])) return -1;
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

// Whether digits stand where the form has zeros, and its own characters elsewhere.
bool IsLaidOutAs(std::string_view form, std::string_view text) {
  return std::ranges::equal(form, text, [](char f, char c) { return f == '0' ? IsDigit(c) : f == c; });
}

// The lenient value of what stands at a place of the line, as a whole number.
double ValueAt(std::string_view line, std::size_t position, std::size_t count) {
  return RoundHalfEven(Val(line.substr(std::min(position, line.size()), count)));
}

// For lines that are not laid out as a driver lays them out.
Date DateOfOddLine(std::string_view line) {
  const double day = ValueAt(line, 3, 2);
  const double month = ValueAt(line, 0, 2);
  const double year = ValueAt(line, 6, 4);
  if (!(day * month * year >= 1)) return 0;
  try {
    return DateSerial(Int16(year), Int16(month), Int16(day));
  } catch (const RunTimeError&) {
    return 0;  // no calendar has it
  }
}

Int32 BytesBehind(std::string_view line, const std::string& marker) {
  const auto found = line.find(marker);
  const std::string_view rest = line.substr(found == std::string_view::npos ? 0 : found + marker.size());
  const auto first = rest.find_first_of("0123456789");
  if (first == std::string_view::npos) return 0;
  const auto stop = rest.find_first_not_of("0123456789", first);
  if (stop == std::string_view::npos) return 0;
  return Int32(Val(rest.substr(first, stop - first)));
}

}  // namespace

Date GetLineDate(std::string_view line) {
  const int month = DigitsAt(line, 0, 2);
  const int day = DigitsAt(line, 3, 2);
  const int year = DigitsAt(line, 6, 4);
  if (std::min({day, month, year}) < 1) return DateOfOddLine(line);
  try {
    return DateSerial(year, month, day);
  } catch (const RunTimeError&) {
    return 0;
  }
}

bool BeginsWithTime(std::string_view line) { return IsLaidOutAs("00:00:00", line.substr(0, 8)); }

Date TimeOfLine(std::string_view line) {
  const auto blank = line.find(' ');
  const std::size_t start = blank == std::string_view::npos ? 0 : blank + 1;
  const auto stop = line.find('.', start);
  if (stop == std::string_view::npos) Raise(InvalidCall);
  const std::string_view text = line.substr(start, stop - start);
  const int hour = DigitsAt(text, 0, 2), minute = DigitsAt(text, 3, 2), second = DigitsAt(text, 6, 2);
  if (IsLaidOutAs("00:00:00", text) && hour < 24 && minute < 60 && second < 60)
    return TimeSerial(hour, minute, second);
  return TimeSerial(0, 0, SecondOfDay(TextToDate(text)));
}

Int32 GetReadBytes(const Settings& settings, std::string_view line) {
  return BytesBehind(line, settings.ModemReads);
}
Int32 GetWriteBytes(const Settings& settings, std::string_view line) {
  return BytesBehind(line, settings.ModemWrites);
}

}  // namespace qel
