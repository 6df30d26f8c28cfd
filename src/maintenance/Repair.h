// Repair of a log that holds bytes no text has, or lines without a date: two passes over the current log, by
// way of working files in the program's folder.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "maintenance/LogSwap.h"
#include "platform/FileLock.h"
#include "values/CheckedInteger.h"

namespace qel {

inline constexpr char CleanedName[] = "ModemLog.fx1";   // bad bytes removed; stays
inline constexpr char RepairedName[] = "ModemLog.fx2";  // lines without a date removed; becomes the log

class LogRepair {
 public:
  // Told what is being done, and how many percent of it, where they change; a percentage above 100 is in the
  // text alone.
  using Progress = std::function<void(const std::optional<std::string>& text, std::optional<Int16> percent)>;

  explicit LogRepair(Progress progress) : progress(std::move(progress)) {}

  // The first pass. Keeps the bytes 32 to 126, carriage returns and line feeds, and of these all but the
  // last. Raises 6 for a log of 3276750 bytes or more, 9 where nothing is left to keep, 70 for
  // a log that is itself a file of the repair, and the disk's errors.
  void FixCorruption();

  // The second pass, which then puts the result in the log's place. Raises 6 for more than 32767 lines, 70
  // for a log that was written to since the first pass, and the disk's errors.
  void CheckEntries();

 private:
  Int16 UpdateInterval() const;

  Progress progress;
  std::optional<FileLock> lock;
  std::optional<LogSwap> swap;  // of the log as the first pass found it
};

}  // namespace qel
