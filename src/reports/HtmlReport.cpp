#include "reports/HtmlReport.h"

#include "analysis/AnalysisResult.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/ReportPeriod.h"
#include "core/ProgramState.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "modemlog/LogFile.h"
#include "reports/DetailLines.h"
#include "reports/HtmlPage.h"
#include "reports/LogStatistics.h"
#include "reports/ReportDocument.h"
#include "reports/UseByService.h"
#include "reports/UseByTime.h"
#include "reports/UseCharts.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/FormatMask.h"
#include "values/NumberConversion.h"

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

std::string LogName() { return "<p>Log: " + HtmlUtf8(ShownPath(logFile.CurrentLogFile)) + "</p>\n"; }

std::string ReportHeading(const std::string& title) {
  ReportDocument labels;
  labels.FillLabels(title);
  return Heading(
      title, Paragraph(labels.RepBegin + " to " + labels.RepEnd + " (" + labels.RepPeriod + ")", "period") +
                 LogName());
}

std::string Warnings() {
  std::string text;
  if (ErrorsAreShown())
    text += Paragraph("WARNING: Errors found in log. Report may not be accurate.", "warning");
  if (analysis.ConnectionsExceeded)
    text += Paragraph(
        "WARNING: The log holds more connections than the settings allow. Report is incomplete.", "warning");
  return text;
}

std::string TimeText(double seconds) { return FormatTime(static_cast<float>(seconds), false); }

// Kilobytes are summed up as they are shown.
double Kilobytes(const ServiceUse& use) {
  return TextToNumber(FormatNumber(static_cast<double>(use.BytesRead) / 1024, "0"));
}

std::string UseText(const ServiceUse& use, double kilobytes) {
  if (!analysis.ShowBlocks) return FormatNumber(kilobytes, "#,##0") + "K";
  return std::to_string(use.Blocks) + " (" + TimeText(60.0 * static_cast<double>(use.BlockMinutes)) + ")";
}

Cells TotalsOf(const UseByService& use) {
  const ServiceUse totals = use.Totals();
  double kilobytes = 0;
  for (const auto& service : use.Services()) kilobytes += Kilobytes(service);
  return {totals.Service,
          TimeText(static_cast<double>(totals.Seconds)),
          std::to_string(totals.Sessions),
          "",
          "",
          UseText(totals, kilobytes),
          MoneyText(totals.TotalCost)};
}

std::string SummaryTable(const UseByService& use) {
  std::vector<HtmlColumn> columns = {{"Service", true},   {"Connected time"},
                                     {"Sessions"},        {"Average session"},
                                     {"Average per day"}, {analysis.ShowBlocks ? "Blocks" : "Data read"}};
  if (settings.CalcCosts) columns.push_back({"Cost"});
  HtmlTable table("Services", columns);
  for (const auto& service : use.Services()) {
    const auto seconds = static_cast<double>(service.Seconds);
    table.AddRow({service.Service, TimeText(seconds), std::to_string(service.Sessions),
                  TimeText(seconds / static_cast<double>(service.Sessions)),
                  TimeText(seconds / period.PeriodDays), UseText(service, Kilobytes(service)),
                  MoneyText(service.TotalCost)});
  }
  return Section("services", table.Finish(TotalsOf(use)));
}

std::string KeyFigures(const Cells& totals) {
  const struct {
    std::size_t item;
    const char* name;
    bool shown;
  } figures[] = {{1, "Connected time", true},
                 {2, "Sessions", true},
                 {5, analysis.ShowBlocks ? "Blocks" : "Data read", true},
                 {6, "Cost", settings.CalcCosts}};
  std::string text = "<div class=\"figures\">\n";
  for (const auto& figure : figures)
    if (figure.shown)
      text += std::string("<dl><dt>") + figure.name + "</dt><dd>" + HtmlText(totals[figure.item]) +
              "</dd></dl>\n";
  return text + "</div>\n";
}

std::string Moment(Date date, Date time) {
  return FormatDate(date, "Short Date") + " " + FormatDate(time, TimeFormat(settings.ForceAMPM));
}

class ConnectionTable {
 public:
  ConnectionTable() : table("Connections", Columns()) {}

  void Add(const DetailLine& line) {
    const ConnectionRecord& c = line.Connection;
    const double costs[] = {line.DialCost, line.ServiceCost, line.DataCost, line.ConnectionCost};
    Cells cells = {std::to_string(line.Index), GetServiceName(settings, c.Number),
                   Moment(c.StartDate, c.StartTime), Moment(c.EndDate, c.EndTime), TimeText(line.Seconds)};
    AddCosts(cells, costs);
    cells.emplace_back(Trim(TidyNotes(c.Notes)));
    table.AddRow(cells);
    seconds += line.Seconds;
    for (std::size_t i = 0; i < std::size(costs); ++i) totals[i] += costs[i];
  }

  std::string Finish() {
    Cells cells = {"TOTALS:", "", "", "", TimeText(seconds)};
    AddCosts(cells, totals);
    return table.Finish(cells);
  }

 private:
  static std::vector<HtmlColumn> Columns() {
    std::vector<HtmlColumn> columns = {
        {"No.", true}, {"Service", true}, {"Connect", true}, {"Disconnect", true}, {"Duration"}};
    if (settings.CalcCosts)
      for (const char* title : {"Dial-up", "Service", "Data", "Cost"}) columns.push_back({title});
    columns.push_back({"Notes", true});
    return columns;
  }

  static void AddCosts(Cells& cells, const double (&costs)[4]) {
    if (settings.CalcCosts)
      for (const double cost : costs) cells.push_back(MoneyText(cost));
  }

  HtmlTable table;
  double seconds = 0;
  double totals[4] = {};
};

std::string ReportPage(const std::string& title, bool withConnections) {
  SetTrace("HtmlReport", "ReportPage");
  UseByService use;
  UseByTime times(period.PeriodStart, period.PeriodEnd);
  ConnectionTable connections;
  CurrentDisplay().ShowProgress(true);
  ForEachConnection([&](const DetailLine& line) {
    use.Add(line);
    times.Add(line);
    if (withConnections) connections.Add(line);
  });
  CurrentDisplay().ShowProgress(false);
  std::string body = ReportHeading(title) + "<main>\n" + Warnings();
  if (use.Services().empty()) {
    body += Paragraph("No connections were made during this period.");
  } else {
    body += KeyFigures(TotalsOf(use)) + SummaryTable(use) + CostByService(use) + UseOverPeriod(times) +
            UseByHour(times);
    if (withConnections) body += Section("connections", connections.Finish());
  }
  return HtmlPage("QELMARK - " + title, body + "</main>\n");
}

}  // namespace

std::string SummaryPage() { return ReportPage("Summary Report", false); }
std::string DetailsPage() { return ReportPage("Details Report", true); }

std::string StatisticsPage() {
  HtmlTable table("Statistics", {{"Figure", true}, {"Value", true}});
  for (const auto& figure : LogStatistics()) table.AddMarkup({HtmlText(figure.Name), HtmlUtf8(figure.Value)});
  return HtmlPage("QELMARK - Log Statistics", Heading("Log Statistics", LogName()) + "<main>\n" +
                                                  Section("statistics", table.Finish()) + "</main>\n");
}

}  // namespace qel
