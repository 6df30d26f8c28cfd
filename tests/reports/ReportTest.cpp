// The reports of several logs in all their forms, against whole files, which QEL_ACCEPT=1 makes anew.
// inputs/week.log and inputs/week.reg tell how its figures come about.
#include <algorithm>
#include <sstream>

#include "core/Surroundings.h"
#include "journeys/Script.h"
#include "platform/TextToDate.h"
#include "reports/DetailReport.h"
#include "reports/Documents.h"
#include "reports/HtmlReport.h"
#include "reports/HtmlStyle.h"
#include "reports/ReportExport.h"
#include "reports/SummaryReport.h"
#include "reports/WeekLog.h"
#include "support/AnsweringHost.h"
#include "support/Cases.h"
#include "support/ErrorRoad.h"
#include "support/Expected.h"
#include "values/CodePage.h"

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

// "summary.grid" is that form of the summary; "explained" are the details with their prices.
std::string Output(Session& session, const std::string& document) {
  const std::string report = document.substr(0, document.find('.')),
                    form = document.substr(report.size() + 1);
  const Explaining explaining{report == "explained"};
  if (form == "csv" || form == "json") {
    const ExportFormat format = form == "csv" ? ExportFormat::Csv : ExportFormat::Json;
    if (report == "statistics") return ExportStatistics(session.logFile, session.findings, format);
    return report == "summary" ? ExportSummary(session.Reported(), format)
                               : ExportDetails(session.Reported(), format, explaining);
  }
  if (form == "html")
    return report == "statistics" ? StatisticsPage(session.logFile, session.findings)
           : report == "summary"  ? SummaryPage(session.Reported(), session.logFile)
                                  : DetailsPage(session.Reported(), session.logFile, explaining);
  if (form == "txt" && report != "summary") return DetailReportText(session.Reported(), explaining);
  const ReportDocument text = report == "summary" ? DisplaySummaryReport(session.Reported())
                                                  : DisplayDetailReport(session.Reported());
  return form == "grid" ? GridText(text) : text.ReportText;
}

// The lines of a document, or those in which it is not as another one.
class Told {
 public:
  static inline std::string Latest;
  Told() {
    std::istringstream from(ToUtf8(Latest));
    for (std::string line; std::getline(from, line);) lines.push_back(line.substr(0, line.find('\r')));
  }
  const std::vector<std::string>& Lines() const { return lines; }
  Told Against(const Told& other) const {
    Told differing;
    differing.lines.clear();
    for (const auto& [mark, some, others] :
         {std::tuple("+ ", &lines, &other.lines), {"- ", &other.lines, &lines}})
      for (const auto& line : *some)
        if (std::ranges::count(*others, line) == 0) differing.lines.push_back(mark + line);
    return differing;
  }

 private:
  std::vector<std::string> lines;
};

struct ReportTest : WeekLog {
  AnsweringHost host;  // in place of the fresh program's
};

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
  session->ProcessLog();
  for (std::string document; names >> document;) {
    SCOPED_TRACE(name + "-" + document);
    std::string seen = Output(*session, document);
    folder.Put(document, seen);
    const auto style = seen.find(PageStyle);  // told once
    if (style != std::string::npos && name != "empty")
      seen.replace(style, std::string(PageStyle).size(), "...\n");
    ExpectFile("reports/expected/" + name + "-" + document, seen);
  }
  EXPECT_EQ(FaultsOfDocuments(folder), "");
}

INSTANTIATE_TEST_SUITE_P(Of, WholeReports, ::testing::ValuesIn(Cases<5>("reports/Documents")), NameOf);

TEST_F(ReportTest, AnErrorLeavesOutWhatFailedAndNothingElse) {
  session->ProcessLog();
  const Int16 connections = analysis.ServiceTotals[1].Connections;
  ExpectScript("reports/errors.reports", [&](Act& act) {
    ErrorRoad<Told> road(
        host, [&] { analysis.ServiceTotals[1].Connections = connections; },
        [&] { Told::Latest = Output(*session, act.Words[0]); });
    const auto change = [&] { analysis.ServiceTotals[1].Connections = std::stoi(act.Word(1)); };
    act.Now = act.Words.size() == 1 ? road.AroundMemory() : road.Around(change, road.Undisturbed());
  });
}

// At each of eight connections the windows are repainted, under the hourglass.
TEST_F(ReportTest, ProgressIsToldOnceForEveryPercent) {
  struct Watch : Display {
    void ShowProgress(bool visible) override { seen += visible ? "shown" : " gone"; }
    void Progress(Int16 percent) override { seen += " " + std::to_string(percent); }
    std::string seen;
  };
  session->ProcessLog();
  Watch watch;
  const Meanwhile here(CurrentSurroundings().Display, &watch);
  host.yielded = [&] { watch.seen += host.pointer == MousePointer::Hourglass ? "%" : "?"; };
  DisplayDetailReport(session->Reported());
  EXPECT_EQ(watch.seen, "shown 12% 25% 37% 50% 62% 75% 87% 100% gone");
  watch.seen = "";
  SummaryPage(session->Reported(), logFile);
  EXPECT_EQ(watch.seen, "shown 12? 25? 37? 50? 62? 75? 87? 100? gone");
  EXPECT_EQ(host.pointer, MousePointer::Default);
  Open("week", "General MaxConnections=dword:000000c8");
  session->ProcessLog();
  analysis.ConnectionCount = 200;
  watch.seen = "";
  SummaryPage(session->Reported(), logFile);
  EXPECT_EQ(std::ranges::count(watch.seen, '?'), 100);
}

}  // namespace qel
