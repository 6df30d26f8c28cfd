// The one definition of a line of the modem log: "MM-DD-YYYY hh:nn:ss.ff - text". Only the fixed positions of
// the date, the first blank and the first "." behind it matter.
#pragma once

#include <string_view>

#include "settings/Settings.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// The characters at the beginning of a line that its date is read from.
inline constexpr std::size_t DateLength = 10;

// The date of a line, or 0 where it has none: day, month or year are no number above 0, or make no date that
// the calendar has. Month 13 and day 32 carry over; nothing here rejects them.
Date GetLineDate(std::string_view line);

// Whether a line has its time of day where the date belongs. Read as a date it makes some day of 1930 to
// 2029.
bool BeginsWithTime(std::string_view line);

// The time of day between the first blank and the first "." behind it. Raises 5 (invalid call) where there is
// no ".", 13 (type mismatch) where the text is no time.
Date TimeOfLine(std::string_view line);

// The first run of digits behind the reads or writes marker, in bytes. 0 where there is none or where the run
// ends the line: a number without anything behind it does not count. Raises 6 (overflow) above 2147483647.
Int32 GetReadBytes(const Settings& settings, std::string_view line);
Int32 GetWriteBytes(const Settings& settings, std::string_view line);

// Whether the counts behind a reads or writes marker are running totals of a connection, as drivers write
// them while it stands ("Read: Total: 621, Per/Sec: 18"), and not its count once it has ended.
inline bool FindsRunningTotals(const std::string& marker) { return marker.find("TOTAL") != marker.npos; }

// Whether a line holds nothing but blanks. Such a line is no entry.
inline bool IsBlankLine(std::string_view line) {
  return (line.empty() || line.front() == ' ') && line.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace qel
