#include "reports/LogStatistics.h"

#include "modemlog/LogExamination.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

std::vector<LogFigure> LogStatistics(const LogFile& logFile, const LogFindings& findings) {
  const auto length = FileLength(logFile.CurrentLogPath);
  return {{"Path", ShownPath(logFile.CurrentLogDir)},
          {"Name", ShownPath(logFile.CurrentLogFile)},
          {"Length", LengthText(length)},
          {"Entries", ToUtf8(NumberText(findings.LogEntries))},
          {"First Entry", ToUtf8(FormatDate(findings.FirstEntryDate, "Short Date"))},
          {"Last Entry", ToUtf8(FormatDate(findings.LastEntryDate, "Short Date"))},
          {"Span", std::to_string(DaysBetween(findings.FirstEntryDate, findings.LastEntryDate)) + " Days"}};
}

}  // namespace qel
