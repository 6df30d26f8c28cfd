#include "reports/WrittenReport.h"

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
  ReportDocument document = summary ? DisplaySummaryReport(of) : DisplayDetailReport(of, explaining);
  return ToCleanUtf8(document.ReportText += NewLine);
}

}  // namespace qel
