#include "cli/ReportOutput.h"

#include <cerrno>
#include <cstdio>

#include "cli/CommandLineHost.h"
#include "core/Places.h"
#include "platform/Files.h"
#include "reports/HtmlReport.h"
#include "reports/LogStatistics.h"
#include "reports/ReportExport.h"
#include "values/CodePage.h"

namespace qel {

namespace {

void WriteToStandardOutput(const std::string& text) {
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) RaiseErrno(errno, "standard output");
}

std::string StatisticsText(const LogFile& logFile, const LogFindings& findings) {
  std::string text;
  for (const auto& figure : LogStatistics(logFile, findings))
    text += figure.Name + ": " + figure.Value + NewLine;
  return text;
}

}  // namespace

std::string StatisticsOutput(const Session& session, OutputFormat format) {
  const LogFile& logFile = session.logFile;
  const LogFindings& findings = session.findings;
  if (format == OutputFormat::Text) return StatisticsText(logFile, findings);
  return format == OutputFormat::Html ? StatisticsPage(logFile, findings)
                                      : ExportStatistics(logFile, findings, ExportFormatOf(format));
}

bool MayWriteTo(const LogFile& logFile, const Arguments& arguments) {
  std::vector<std::string> read = arguments.compare;
  read.insert(read.end(), {logFile.CurrentLogPath, arguments.settings.value_or(SettingsStorePath())});
  for (const auto& file : read)
    if (IsSameFile(*arguments.output, file)) {
      Complain("--output " + ShownPath(*arguments.output) + " would overwrite what the report is made from");
      return false;
    }
  return true;
}

bool WriteOut(const std::string& text, const std::optional<std::string>& path) {
  try {
    if (!path) {
      WriteToStandardOutput(text);
      return true;
    }
    ReplaceFile(*path, text);
    return true;
  } catch (const RunTimeError& error) {
    Complain("cannot write to " + ShownPath(path.value_or("standard output")) + ": " + ReasonOf(error));
    return false;
  }
}

}  // namespace qel
