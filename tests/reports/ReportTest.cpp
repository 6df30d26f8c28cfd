// Both reports of one log in all their forms, against whole files. inputs/week.log and inputs/week.reg tell
// how the figures come about.
#include "platform/CodePage.h"
#include "reports/DetailReport.h"
#include "reports/ReportExport.h"
#include "reports/SummaryReport.h"
#include "reports/WeekLog.h"
#include "support/FailingMemory.h"

namespace qel {

namespace {

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

// The report that a file of the folder `expected` is named after: "costs-summary.grid".
std::string Output(const std::string& name) {
  const bool summary = name.find("-summary") != std::string::npos;
  if (name.ends_with(".csv") || name.ends_with(".json")) {
    const ExportFormat format = name.ends_with(".csv") ? ExportFormat::Csv : ExportFormat::Json;
    return summary ? ExportSummary(format) : ExportDetails(format);
  }
  const ReportDocument document = summary ? DisplaySummaryReport() : DisplayDetailReport();
  return name.ends_with(".grid") ? GridText(document) : document.ReportText;
}

using ReportTest = WeekLog;

class WholeReports : public WeekLog, public ::testing::WithParamInterface<const char*> {};

}  // namespace

// One analysis feeds them all, so none of them changes what the next one reads.
TEST_P(WholeReports, AreAsWorkedOutByHand) {
  const std::string variant = GetParam();
  if (variant == "blocks") Services[1].Block = 15;
  if (variant == "nocosts") CalcCosts = false;
  if (variant == "empty") SetPeriod(DateSerial(1999, 3, 5), DateSerial(1999, 3, 5));
  Analyse();
  for (const std::string report : {"-summary", "-details"})
    for (const std::string form : {".txt", ".grid", ".csv", ".json"}) {
      const std::string name = variant + report + form;
      const std::string expected = folder.Content("reports/expected/" + name);
      const bool isExport = form == ".csv" || form == ".json";
      EXPECT_EQ(Output(name), isExport ? ToUtf8(expected) : expected) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Week, WholeReports, ::testing::Values("costs", "blocks", "nocosts", "empty"));

TEST_F(ReportTest, ConnectionsWithErrorsLeaveAGapWhereErrorsAreNotShown) {
  Analyse();
  ShowErrors = false;
  const ReportDocument details = DisplayDetailReport();
  std::string numbers;
  for (const auto& row : details.Rows) numbers += row.Text;
  EXPECT_EQ(numbers, " 1 2 3 5 6 7 8");
  EXPECT_EQ(details.Rows.back().SubItems[4], "02:37:00");  // 600 s less
  EXPECT_EQ((details.ReportText + DisplaySummaryReport().ReportText).find("WARNING"), std::string::npos);
}

// With the tariff "Day" alone, connection 2 has a gap from 18:00 on: what was priced before it counts.
TEST_F(ReportTest, IncompleteTariffsCostWhatWasPriced) {
  Services[0].UsedTariffs = 1;
  Analyse();
  const std::string details = ExportDetails(ExportFormat::Csv);
  EXPECT_NE(details.find("1573376,0,0.639,0.2,0.500244,1.339244,"), std::string::npos) << details;
  EXPECT_NE(details.find(",incomplete-tariff\r\n"), std::string::npos) << details;
}

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
