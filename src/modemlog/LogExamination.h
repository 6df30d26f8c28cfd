// Finds out what there is to know of the current log: its health and its statistics. Corruption means a byte
// that no text log can hold; nothing of the log's structure is tested.
#pragma once

#include <cstdint>
#include <string>

#include "modemlog/LogFile.h"

namespace qel {

// The length of a log as it is shown: "4058 Bytes (4KB)", to the nearest kilobyte, ties to the even one; in
// megabytes where 16 bits do not hold the kilobytes.
std::string LengthText(std::int64_t bytes);

// Looks at every byte of the current log but its last. True at the first byte below 32 other than tab, line
// feed and carriage return, and at the first byte of 127 or above. Sets LogLength, and LogEmpty for an empty
// file. A file of 3276750 bytes or more raises 6 (overflow) to the error handler. `showProgress` tells the
// splash window.
bool CheckCorruption(bool showProgress);

// Reads the current log line by line and sets LogLength, LogEmpty, LogTooBig, LogEntries, the two dates and
// LogInvalid. With `keepPointer` the hourglass stays for a caller that goes on working.
void GetLogStats(bool keepPointer);

// What is known of a log's bytes before it is examined. They are tested where nothing is (Told: the splash
// window hears of it), and taken as they are known else: an archive may be longer than the test can bear.
enum class LogHealth { Unknown, UnknownTold, Sound, Corrupt };

// Examines the current log, the one way for all: whether it is there, corrupt, and unless it is, its
// statistics. Sets all that LogFindings has of it. What is corrupt has none: they would call it invalid,
// and its repair would be out of reach. An empty log keeps being too big or invalid.
void Examine(LogHealth health, bool keepPointer = false);

}  // namespace qel
