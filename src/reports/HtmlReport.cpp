#include "reports/HtmlReport.h"

#include "analysis/ConnectionNotes.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "core/CurrencyFormat.h"
#include "core/Display.h"
#include "core/GeneralFunctions.h"
#include "core/ProgramState.h"
#include "modemlog/DialledNumber.h"
#include "platform/CodePage.h"
#include "platform/FormatMask.h"
#include "reports/DetailLines.h"
#include "reports/HtmlPage.h"
#include "reports/LogFigures.h"
#include "reports/SummaryReport.h"
#include "reports/UseByTime.h"
#include "reports/UseFigures.h"
#include "settings/Settings.h"

namespace qel {

namespace {

using Cells = std::vector<std::string>;

std::string Paragraph(const std::string& text, const char* style = "") {
  const std::string attribute = *style ? std::string(" class=\"") + style + "\"" : "";
  return "<p" + attribute + ">" + HtmlText(text) + "</p>\n";
}

std::string Section(const char* style, const std::string& markup) {
  return std::string("<section class=\"") + style + "\">\n" + markup + "</section>\n";
}

std::string Heading(const std::string& title, const std::string& below) {
  return "<header>\n" + Paragraph("QELMARK", "brand") + "<h1>" + HtmlText(title) + "</h1>\n" + below +
         "</header>\n";
}

std::string ReportHeading(const std::string& title, const ReportDocument& summary) {
  return Heading(title, Paragraph(summary.RepBegin + " to " + summary.RepEnd + " (" + summary.RepPeriod + ")",
                                  "period") +
                            Paragraph("Log: " + PathText(CurrentLogFile)));
}

std::string Warnings() {
  std::string text;
  if (ErrorsAreShown())
    text += Paragraph("WARNING: Errors found in log. Report may not be accurate.", "warning");
  if (ConnectionsExceeded)
    text += Paragraph(
        "WARNING: The log holds more connections than the settings allow. Report is incomplete.", "warning");
  return text;
}

// A grid's row without its leading column.
bool IsDotted(const ReportRow& row) { return row.SubItems.front().starts_with("...."); }

std::string SummaryTable(const ReportDocument& summary) {
  std::vector<HtmlColumn> columns = {{"Service", true},   {"Connected time"},
                                     {"Sessions"},        {"Average session"},
                                     {"Average per day"}, {ShowBlocks ? "Blocks" : "Data read"}};
  if (CalcCosts) columns.push_back({"Cost"});
  HtmlTable table("Services", columns);
  for (std::size_t i = 0; i + 1 < summary.Rows.size(); ++i) {
    const ReportRow& row = summary.Rows[i];
    if (!row.SubItems.empty() && !IsDotted(row)) table.AddRow(row.SubItems);
  }
  return Section("services", table.Finish(summary.Rows.back().SubItems));
}

// The totals as the summary's last row has them.
std::string KeyFigures(const ReportDocument& summary) {
  const struct {
    std::size_t item;
    const char* name;
  } figures[] = {
      {1, "Connected time"}, {2, "Sessions"}, {5, ShowBlocks ? "Blocks" : "Data read"}, {6, "Cost"}};
  const Cells& totals = summary.Rows.back().SubItems;
  std::string text = "<dl class=\"figures\">\n";
  for (const auto& figure : figures)
    if (figure.item < totals.size())
      text += std::string("<div><dt>") + figure.name + "</dt><dd>" + HtmlText(totals[figure.item]) +
              "</dd></div>\n";
  return text + "</dl>\n";
}

std::string Moment(Date date, Date time) {
  return FormatDate(date, "Short Date") + " " + FormatDate(time, TimeFormat);
}

// The connections with their parts of cost, which answered calls do not have.
class ConnectionTable {
 public:
  ConnectionTable() : table("Connections", Columns()) {}

  void Add(const DetailLine& line) {
    const ConnectionRecord& c = line.Connection;
    const double charged = c.Answered ? 0 : 1;
    const double costs[] = {line.DialCost * charged, line.ServiceCost * charged, line.DataCost * charged,
                            line.ConnectionCost};
    Cells cells = {std::to_string(line.Index), GetServiceName(c.Number), Moment(c.StartDate, c.StartTime),
                   Moment(c.EndDate, c.EndTime), FormatTime(static_cast<float>(line.Seconds), false)};
    AddCosts(cells, costs);
    cells.emplace_back(Trim(TidyNotes(c.Notes)));
    table.AddRow(cells);
    seconds += static_cast<float>(line.Seconds);
    for (std::size_t i = 0; i < std::size(costs); ++i) totals[i] += costs[i];
  }

  std::string Finish() {
    Cells cells = {"TOTALS:", "", "", "", FormatTime(seconds, false)};
    AddCosts(cells, totals);
    return table.Finish(cells);
  }

 private:
  static std::vector<HtmlColumn> Columns() {
    std::vector<HtmlColumn> columns = {
        {"No.", true}, {"Service", true}, {"Connect", true}, {"Disconnect", true}, {"Duration"}};
    if (CalcCosts)
      for (const char* title : {"Dial-up", "Service", "Data", "Cost"}) columns.push_back({title});
    columns.push_back({"Notes", true});
    return columns;
  }

  static void AddCosts(Cells& cells, const double (&costs)[4]) {
    if (CalcCosts)
      for (const double cost : costs) cells.push_back(MoneyText(cost));
  }

  HtmlTable table;
  float seconds = 0;  // as the text report sums them up
  double totals[4] = {};
};

std::string ReportPage(const std::string& title, bool withConnections) {
  SetTrace("HtmlReport", "ReportPage");
  const ReportDocument summary = DisplaySummaryReport();
  std::string body = ReportHeading(title, summary) + "<main>\n" + Warnings();
  if (summary.fraNoConn) {
    body += Paragraph("No connections were made during this period.");
  } else {
    UseByTime use(PeriodStart, PeriodEnd);
    ConnectionTable connections;
    CurrentDisplay().ShowProgress(true);
    ForEachDetailLine([&](const DetailLine& line) {
      use.Add(line);
      if (withConnections) connections.Add(line);
    });
    CurrentDisplay().ShowProgress(false);
    body +=
        KeyFigures(summary) + SummaryTable(summary) + CostByService() + UseOverPeriod(use) + UseByHour(use);
    if (withConnections) body += Section("connections", connections.Finish());
  }
  return HtmlPage("QELMARK - " + title, body + "</main>\n");
}

}  // namespace

std::string SummaryPage() { return ReportPage("Summary Report", false); }
std::string DetailsPage() { return ReportPage("Details Report", true); }

std::string StatisticsPage() {
  HtmlTable table("Statistics", {{"Figure", true}, {"Value", true}});
  for (const auto& figure : LogFigures()) table.AddRow({figure.Name, figure.Value});
  return HtmlPage("QELMARK - Log Statistics",
                  Heading("Log Statistics", Paragraph("Log: " + PathText(CurrentLogFile))) + "<main>\n" +
                      Section("statistics", table.Finish()) + "</main>\n");
}

}  // namespace qel
