// The health and the statistics of the current log. Corruption means a byte that no text log can hold;
// nothing of the log's structure is tested.
#pragma once

#include <cstdint>

#include "platform/Calendar.h"
#include "platform/CheckedInteger.h"

namespace qel {

extern Int32 LogLength;      // bytes; a longer archive counts as 2147483647
extern float LogEntries;     // lines that are not blank; exact up to 16777216
extern Date FirstEntryDate;  // of the first entry that has a date; 0 when none has
extern Date LastEntryDate;   // of the last entry; 0 when it has none

// The length of a log in whole kilobytes, as it is shown: to the nearest, ties to the even one.
inline std::int64_t Kilobytes(std::int64_t bytes) {
  return static_cast<std::int64_t>(RoundHalfEven(static_cast<double>(bytes) / 1024));
}

void ResetLogStatistics();

// Looks at every byte of the current log but its last. True at the first byte below 32 other than tab, line
// feed and carriage return, and at the first byte of 127 or above. Sets LogLength, and LogEmpty for an empty
// file. A file of 3276750 bytes or more raises 6 (overflow) to the error handler. `showProgress` tells the
// splash window.
bool CheckCorruption(bool showProgress);

// Reads the current log line by line and sets LogLength, LogEmpty, LogTooBig, LogEntries, the two dates and
// LogInvalid. With `keepPointer` the hourglass stays for a caller that goes on working.
void GetLogStats(bool keepPointer);

}  // namespace qel
