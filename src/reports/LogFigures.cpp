#include "reports/LogFigures.h"

#include "core/ProgramState.h"
#include "modemlog/LogStatistics.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/FormatMask.h"
#include "platform/TextConversion.h"

namespace qel {

std::vector<LogFigure> LogFigures() {
  const auto length = FileLength(CurrentLogPath);
  return {{"Path", PathText(CurrentLogDir)},
          {"Name", PathText(CurrentLogFile)},
          {"Length", std::to_string(length) + " Bytes (" + std::to_string(length / 1024) + "KB)"},
          {"Entries", NumberText(LogEntries)},
          {"First Entry", FormatDate(FirstEntryDate, "Short Date")},
          {"Last Entry", FormatDate(LastEntryDate, "Short Date")},
          {"Span", std::to_string(DaysBetween(FirstEntryDate, LastEntryDate)) + " Days"}};
}

}  // namespace qel
