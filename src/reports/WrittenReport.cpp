#include "reports/WrittenReport.h"

#include <algorithm>

#include "reports/DetailReport.h"
#include "reports/HtmlReport.h"
#include "reports/SummaryReport.h"
#include "values/CodePage.h"

namespace qel {

ExportFormat ExportFormatOf(OutputFormat format) {
  return format == OutputFormat::Csv ? ExportFormat::Csv : ExportFormat::Json;
}

std::string WrittenReport(const ReportOf& of, const LogFile& logFile, ReportKind report, OutputFormat format,
                          const Explaining& explaining) {
  const bool summary = report == ReportKind::Summary;
  if (format == OutputFormat::Html)
    return summary ? SummaryPage(of, logFile) : DetailsPage(of, logFile, explaining);
  if (format != OutputFormat::Text) {
    const ExportFormat as = ExportFormatOf(format);
    return summary ? ExportSummary(of, as) : ExportDetails(of, as, explaining);
  }
  std::string text = summary ? DisplaySummaryReport(of).ReportText : DetailReportText(of, explaining);
  text += NewLine;
  // UTF-8 leaves plain ASCII as it is: a long report then lies in memory once.
  const bool isAscii = std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 127; });
  if (!isAscii) text = ToCleanUtf8(text);
  return text;
}

std::string WrittenConnection(const Settings& settings, const DetailLine& line, OutputFormat format) {
  if (format == OutputFormat::Text) return ToCleanUtf8(DetailInOneLine(settings, line)) + "\n";
  return ExportedConnection(settings, line, ExportFormatOf(format));
}

std::string LineAboveConnections(const Settings& settings, OutputFormat format) {
  return format == OutputFormat::Text ? "" : ConnectionNames(settings, ExportFormatOf(format));
}

std::string WrittenReport(const ReportOf& of, const LogFile& logFile, const Comparison& comparison,
                          OutputFormat format) {
  if (format == OutputFormat::Html) return ComparisonPage(of, logFile, comparison);
  if (format == OutputFormat::Text) return ToCleanUtf8(ComparisonText(of, comparison));
  return ExportComparison(of, ExportFormatOf(format), comparison);
}

}  // namespace qel
