// The reports of several logs in all their forms, against whole files, which QEL_ACCEPT=1 makes anew.
// inputs/week.log and inputs/week.reg tell how its figures come about.
#include <algorithm>
#include <sstream>

#include "platform/DateConversion.h"
#include "reports/DetailReport.h"
#include "reports/Documents.h"
#include "reports/HtmlReport.h"
#include "reports/HtmlStyle.h"
#include "reports/ReportExport.h"
#include "reports/SummaryReport.h"
#include "reports/WeekLog.h"
#include "support/Cases.h"
#include "support/Expected.h"
#include "support/FailingMemory.h"

namespace qel {

namespace {

using Variant = std::array<std::string, 5>;  // name, inputs, changes of the settings, days, documents

// All of the list view, a line for each row and "|" between its cells.
std::string GridText(const ReportDocument& document) {
  const char* const alignments[] = {"/Left", "/Right", "/Centre"};
  std::string text = document.RepTitle + "|" + document.RepBegin + "|" + document.RepEnd + "|" +
                     document.RepPeriod + "\ntitle " + std::to_string(document.TitleStart) + " to " +
                     std::to_string(document.TitleLength) + "\nfraWarning " +
                     std::to_string(document.fraWarning) + ", fraNoConn " +
                     std::to_string(document.fraNoConn) + "\n";
  for (const auto& column : document.Columns) {
    text += (&column == document.Columns.data() ? "" : "|") + column.Title;
    text += alignments[static_cast<int>(column.Alignment)];
    if (column.Width > 0) text += "/" + std::to_string(column.Width);
  }
  for (const auto& row : document.Rows) {
    text += "\n" + row.Text;
    for (const auto& cell : row.SubItems) text += "|" + cell;
  }
  return text + "\nselected " + std::to_string(document.SelectedRow) + "\n";
}

// "summary.grid" is that form of the summary.
std::string Output(const std::string& document) {
  const std::string report = document.substr(0, document.find('.')),
                    form = document.substr(report.size() + 1);
  if (form == "csv" || form == "json") {
    const ExportFormat format = form == "csv" ? ExportFormat::Csv : ExportFormat::Json;
    if (report == "statistics") return ExportStatistics(format);
    return report == "summary" ? ExportSummary(format) : ExportDetails(format);
  }
  if (form == "html")
    return report == "statistics" ? StatisticsPage() : report == "summary" ? SummaryPage() : DetailsPage();
  const ReportDocument text = report == "summary" ? DisplaySummaryReport() : DisplayDetailReport();
  return form == "grid" ? GridText(text) : text.ReportText;
}

using ReportTest = WeekLog;

class WholeReports : public WeekLog, public ::testing::WithParamInterface<Variant> {};

std::string NameOf(const ::testing::TestParamInfo<Variant>& variant) { return variant.param[0]; }

}  // namespace

// One analysis feeds them all, so none of them changes what the next one reads.
TEST_P(WholeReports, AreAsExpected) {
  const auto& [name, inputs, changes, days, documents] = GetParam();
  Open(inputs, changes);
  std::istringstream dates(days), names(documents);
  std::string first, last;
  dates >> first >> last;
  SetPeriod(TextToDate(first), TextToDate(last));
  Analyse();
  for (std::string document; names >> document;) {
    SCOPED_TRACE(name + "-" + document);
    std::string seen = Output(document);
    folder.Put(document, seen);
    const auto style = seen.find(PageStyle);  // told once
    if (style != std::string::npos && name != "empty")
      seen.replace(style, std::string(PageStyle).size(), "...\n");
    ExpectFile("reports/expected/" + name + "-" + document, seen);
  }
  EXPECT_EQ(FaultsOfDocuments(folder), "");
}

INSTANTIATE_TEST_SUITE_P(Of, WholeReports, ::testing::ValuesIn(Cases<5>("reports/Documents")), NameOf);

// Each piece of memory refused once, and the statement repeated.
TEST_F(ReportTest, AStatementThatIsRepeatedAddsNothingTwice) {
  Analyse();
  for (const auto display : {DisplaySummaryReport, DisplayDetailReport}) {
    const ReportDocument whole = display();
    for (int n = 1; n == 1 || RefusedMemory(); ++n) {
      host.messages.clear();
      host.answers.assign(2, Answer::Retry);
      RefuseMemory(n);
      try {
        const ReportDocument report = display();
        if (RefusedMemory() && host.messages.empty()) continue;
        EXPECT_EQ(report.ReportText, whole.ReportText) << n;
        EXPECT_EQ(GridText(report), GridText(whole)) << n;
      } catch (const std::bad_alloc&) {  // what is built once is not wrapped; no report comes of it
      }
    }
  }
}

// At each of eight connections the windows are repainted, under the hourglass.
TEST_F(ReportTest, ProgressIsToldOnceForEveryPercent) {
  struct Watch : Display {
    void ShowProgress(bool visible) override { seen += visible ? "shown" : " gone"; }
    void Progress(Int16 percent) override { seen += " " + std::to_string(percent); }
    std::string seen;
  };
  Analyse();
  Watch watch;
  SetDisplay(watch);
  host.yielded = [&] { watch.seen += host.pointer == MousePointer::Hourglass ? "%" : "?"; };
  DisplayDetailReport();
  EXPECT_EQ(watch.seen, "shown 12% 25% 37% 50% 62% 75% 87% 100% gone");
  watch.seen = "";
  SummaryPage();
  EXPECT_EQ(watch.seen, "shown 12? 25? 37? 50? 62? 75? 87? 100? gone");
  EXPECT_EQ(host.pointer, MousePointer::Default);
  Open("week", "General MaxConnections=dword:000000c8");
  Analyse();
  ConnectionCount = 200;
  watch.seen = "";
  SummaryPage();
  EXPECT_EQ(std::ranges::count(watch.seen, '?'), 100);
}

TEST_F(ReportTest, ASumThatOverflowsAloneLacksWhatWasIgnored) {
  Analyse();
  ServiceTotals[1].Connections = 32767;
  const std::string ignored = DisplaySummaryReport().ReportText;
  EXPECT_EQ(host.messages.size(), 2u) << "one error, shown twice";
  for (const char* kept : {"00:50:00       32767 ", "02:47:00       5 ", "$5.08"})
    EXPECT_NE(ignored.find(kept), std::string::npos) << kept;
  host.answers.assign(4, Answer::Retry);
  EXPECT_EQ(DisplaySummaryReport().ReportText, ignored);
}

}  // namespace qel
