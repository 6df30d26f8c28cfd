// Repair of a log that holds bytes no text has, or lines without a date: two passes over the log, by
// way of working files in the program's folder.
#pragma once

#include <optional>

#include "core/Display.h"
#include "maintenance/LogRewrite.h"

namespace qel {

class LogRepair {
 public:
  // `display` is told how far the repair is. Both must outlive it.
  LogRepair(const LogInHand& inHand, Display& display) : inHand(inHand), display(display) {}

  // The first pass. Keeps the bytes 32 to 126, carriage returns and line feeds, and of these all but the
  // last. Raises 6 for a log of 3276750 bytes or more, 9 where nothing is left to keep, 70 for
  // a log that is itself a file of the repair, and the disk's errors.
  void FixCorruption();

  // The second pass, which then puts the result in the log's place. Raises 6 for more than 32767 lines, 70
  // for a log that was written to since the first pass, and the disk's errors.
  void CheckEntries();

 private:
  const LogInHand& inHand;
  Display& display;
  std::optional<LogRewrite> rewrite;  // of the log as the first pass found it
};

}  // namespace qel
