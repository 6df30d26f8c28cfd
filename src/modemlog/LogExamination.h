// Finds out what there is to know of a log: its health and its statistics. Corruption means a byte that no
// text log can hold; nothing of the log's structure is tested.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "modemlog/LogFile.h"

namespace qel {

// The length of a log as it is shown: "4058 Bytes (4KB)", to the nearest kilobyte, ties to the even one; in
// megabytes where 16 bits do not hold the kilobytes.
std::string LengthText(std::int64_t bytes);

// The first entry of a log whose entries, or the first ten of them, begin with the time of day where the date
// belongs. Raises as the readers do.
std::optional<std::string> TimeInPlaceOfDate(const std::string& logPath);

// What is known of a log's bytes before it is examined. They are tested where nothing is (Told: the splash
// window hears of it), and taken as they are known else: an archive may be longer than the test can bear.
enum class LogHealth { Unknown, UnknownTold, Sound, Corrupt };

// Whether somebody shows how many entries a log has: counting them takes reading all of it, where its dates
// stand at its two ends.
enum class EntryCount { Wanted, NotWanted };

// Examines a log, the one way for all: whether it is there, corrupt, and unless it is, its statistics; from
// `maxSize` kilobytes on it is too big. Sets all that LogFindings has of it. What is corrupt has no
// statistics: they would call it invalid, and its repair would be out of reach. An empty log keeps being too
// big or invalid.
void Examine(const LogFile& logFile, Int32 maxSize, LogHealth health, EntryCount count,
             LogFindings& findings);

}  // namespace qel
