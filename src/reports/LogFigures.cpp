#include "reports/LogFigures.h"

#include "core/ProgramState.h"
#include "modemlog/LogStatistics.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/FormatMask.h"
#include "values/NumberConversion.h"

namespace qel {

std::vector<LogFigure> LogFigures() {
  const auto length = FileLength(CurrentLogPath);
  return {{"Path", ShownPath(CurrentLogDir)},
          {"Name", ShownPath(CurrentLogFile)},
          {"Length", LengthText(length)},
          {"Entries", ToUtf8(NumberText(LogEntries))},
          {"First Entry", ToUtf8(FormatDate(FirstEntryDate, "Short Date"))},
          {"Last Entry", ToUtf8(FormatDate(LastEntryDate, "Short Date"))},
          {"Span", std::to_string(DaysBetween(FirstEntryDate, LastEntryDate)) + " Days"}};
}

}  // namespace qel
