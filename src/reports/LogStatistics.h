// What is known of a log, as names and values to show.
#pragma once

#include <string>
#include <vector>

#include "modemlog/LogFile.h"

namespace qel {

struct LogFigure {
  std::string Name, Value;
};

// Path, name, length, entries, first and last entry, span, in UTF-8. Raises 53 where the log is gone.
std::vector<LogFigure> LogStatistics(const LogFile& logFile, const LogFindings& findings);

}  // namespace qel
