#include "reports/HtmlReport.h"

#include "analysis/AnalysisResult.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/Period.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "reports/DetailLines.h"
#include "reports/HtmlPage.h"
#include "reports/LogStatistics.h"
#include "reports/ReportDocument.h"
#include "reports/UseByService.h"
#include "reports/UseByTime.h"
#include "reports/UseCharts.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

using Cells = std::vector<std::string>;

constexpr double DrawingWidth = 960;  // about as wide as a page

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

std::string Figure(const Drawing& picture, const std::string& below = "") {
  return "<figure>\n<figcaption><h2>" + HtmlText(picture.Heading) + "</h2>" + HtmlText(picture.Caption) +
         "</figcaption>\n<div class=\"wide\">" + picture.Markup + "</div>\n" + below + "</figure>\n";
}

std::string LogName(const LogFile& logFile) {
  return "<p>Log: " + HtmlUtf8(ShownPath(logFile.CurrentLogFile)) + "</p>\n";
}

std::string ReportHeading(const ReportOf& of, const LogFile& logFile, const std::string& title) {
  ReportDocument labels;
  labels.FillLabels(of, title);
  return Heading(
      title, Paragraph(labels.RepBegin + " to " + labels.RepEnd + " (" + labels.RepPeriod + ")", "period") +
                 LogName(logFile));
}

std::string Warnings(const ReportOf& of) {
  std::string text;
  if (ErrorsAreShown(of))
    text += Paragraph("WARNING: Errors found in log. Report may not be accurate.", "warning");
  if (of.analysis.ConnectionsExceeded)
    text += Paragraph(
        "WARNING: The log holds more connections than the settings allow. Report is incomplete.", "warning");
  return text;
}

std::string TimeText(double seconds) { return FormatTime(static_cast<float>(seconds), false); }

// Kilobytes are summed up as they are shown.
double Kilobytes(const ServiceUse& use) {
  return TextToNumber(FormatNumber(static_cast<double>(use.BytesRead) / 1024, "0"));
}

std::string UseText(const ReportOf& of, const ServiceUse& use, double kilobytes) {
  if (!of.analysis.ShowBlocks) return FormatNumber(kilobytes, "#,##0") + "K";
  return std::to_string(use.Blocks) + " (" + TimeText(60.0 * static_cast<double>(use.BlockMinutes)) + ")";
}

Cells TotalsOf(const ReportOf& of, const UseByService& use) {
  const ServiceUse totals = use.Totals();
  double kilobytes = 0;
  for (const auto& service : use.Services()) kilobytes += Kilobytes(service);
  return {totals.Service,
          TimeText(static_cast<double>(totals.Seconds)),
          std::to_string(totals.Sessions),
          "",
          "",
          UseText(of, totals, kilobytes),
          MoneyText(totals.TotalCost)};
}

std::string SummaryTable(const ReportOf& of, const UseByService& use) {
  std::vector<HtmlColumn> columns = {{"Service", true},   {"Connected time"},
                                     {"Sessions"},        {"Average session"},
                                     {"Average per day"}, {of.analysis.ShowBlocks ? "Blocks" : "Data read"}};
  if (of.settings.CalcCosts) columns.push_back({"Cost"});
  HtmlTable table("Services", columns);
  for (const auto& service : use.Services()) {
    const auto seconds = static_cast<double>(service.Seconds);
    table.AddRow({service.Service, TimeText(seconds), std::to_string(service.Sessions),
                  TimeText(seconds / static_cast<double>(service.Sessions)),
                  TimeText(seconds / of.period.PeriodDays), UseText(of, service, Kilobytes(service)),
                  MoneyText(service.TotalCost)});
  }
  return Section("services", table.Finish(TotalsOf(of, use)));
}

std::string KeyFigures(const ReportOf& of, const Cells& totals) {
  const struct {
    std::size_t item;
    const char* name;
    bool shown;
  } figures[] = {{1, "Connected time", true},
                 {2, "Sessions", true},
                 {5, of.analysis.ShowBlocks ? "Blocks" : "Data read", true},
                 {6, "Cost", of.settings.CalcCosts}};
  std::string text = "<div class=\"figures\">\n";
  for (const auto& figure : figures)
    if (figure.shown)
      text += std::string("<dl><dt>") + figure.name + "</dt><dd>" + HtmlText(totals[figure.item]) +
              "</dd></dl>\n";
  return text + "</div>\n";
}

// To unfold: the pieces of a connection's price.
std::string ExplanationOf(const Settings& settings, const DetailLine& line) {
  const std::string title = PriceTitle(settings, line);
  HtmlTable table(title, {{"Part", true}, {"Amount"}, {"Reason", true}});
  for (const auto& [part, text, cost] : PriceLines(settings, line)) table.AddRow({part, cost, text});
  return "<details><summary>" + HtmlText(title) + "</summary>" + table.Finish() + "</details>";
}

class ConnectionTable {
 public:
  explicit ConnectionTable(const Settings& settings)
      : settings(settings), table("Connections", Columns(settings)) {}

  void Add(const DetailLine& line, bool explained) {
    const ConnectionRecord& c = line.Connection;
    const double costs[] = {line.Costs.DialCostNow, line.Costs.ServiceCostNow, line.Costs.DataCostNow,
                            line.ConnectionCost};
    Cells cells = {std::to_string(line.Index), GetServiceName(settings, c.Number),
                   MomentText(c.StartDate, c.StartTime, settings.ForceAMPM),
                   MomentText(c.EndDate, c.EndTime, settings.ForceAMPM), TimeText(line.Seconds)};
    AddCosts(cells, costs);
    cells.emplace_back(Trim(TidyNotes(c.Notes)));
    table.AddRow(cells);
    if (explained) table.AddWideMarkup(ExplanationOf(settings, line));
    seconds += line.Seconds;
    for (std::size_t i = 0; i < std::size(costs); ++i) totals[i] += costs[i];
  }

  std::string Finish() {
    Cells cells = {"TOTALS:", "", "", "", TimeText(seconds)};
    AddCosts(cells, totals);
    return table.Finish(cells);
  }

 private:
  static std::vector<HtmlColumn> Columns(const Settings& settings) {
    std::vector<HtmlColumn> columns = {
        {"No.", true}, {"Service", true}, {"Connect", true}, {"Disconnect", true}, {"Duration"}};
    if (settings.CalcCosts)
      for (const char* title : {"Dial-up", "Service", "Data", "Cost"}) columns.push_back({title});
    columns.push_back({"Notes", true});
    return columns;
  }

  void AddCosts(Cells& cells, const double (&costs)[4]) const {
    if (settings.CalcCosts)
      for (const double cost : costs) cells.push_back(MoneyText(cost));
  }

  const Settings& settings;
  HtmlTable table;
  double seconds = 0;
  double totals[4] = {};
};

std::string ReportPage(const ReportOf& of, const LogFile& logFile, const std::string& title,
                       bool withConnections, const Explaining& explaining = {}) {
  SetTrace("HtmlReport", "ReportPage");
  UseByService use(of.settings);
  UseByTime times(of.period.PeriodStart, of.period.PeriodEnd);
  ConnectionTable connections(of.settings);
  CurrentDisplay().ShowProgress(true);
  ForEachConnection(of, [&](const DetailLine& line) {
    if (!explaining.Includes(line)) return;
    use.Add(line);
    times.Add(line);
    if (withConnections) connections.Add(line, explaining.Wanted);
  });
  CurrentDisplay().ShowProgress(false);
  std::string body = ReportHeading(of, logFile, title) + "<main>\n" + Warnings(of);
  if (use.Services().empty()) {
    body += Paragraph("No connections were made during this period.");
  } else {
    body += KeyFigures(of, TotalsOf(of, use)) + SummaryTable(of, use);
    for (const auto& chart : UseCharts(use, times, of.settings.CalcCosts, DrawingWidth))
      body += Figure(chart.Picture, "<details><summary>Figures</summary>\n" + chart.Table + "</details>\n");
    if (withConnections) body += Section("connections", connections.Finish());
  }
  return HtmlPage("QELMARK - " + title, body + "</main>\n");
}

}  // namespace

std::string SummaryPage(const ReportOf& of, const LogFile& logFile) {
  return ReportPage(of, logFile, "Summary Report", false);
}

std::string DetailsPage(const ReportOf& of, const LogFile& logFile, const Explaining& explaining) {
  return ReportPage(of, logFile, "Details Report", true, explaining);
}

std::string ComparisonPage(const ReportOf& of, const LogFile& logFile, const Comparison& comparison) {
  const std::string title = "Compare Report";
  std::string body = ReportHeading(of, logFile, title) + "<main>\n" + Warnings(of);
  for (const auto& compared : ComparisonTables(of, comparison)) {
    HtmlTable table(compared.Caption,
                    {{compared.NameTitle, true}, {"Cost"}, {"Difference a month"}, {"Remark", true}});
    for (const auto& row : compared.Rows) table.AddRow({row.Name, row.Cost, row.Difference, row.Remark});
    body += Section("services", table.Finish());
  }
  for (const auto& service : comparison.Services)
    body += Figure(OffersDrawing(of.settings, service, DrawingWidth));
  return HtmlPage("QELMARK - " + title, body + "</main>\n");
}

std::string StatisticsPage(const LogFile& logFile, const LogFindings& findings) {
  HtmlTable table("Statistics", {{"Figure", true}, {"Value", true}});
  for (const auto& figure : LogStatistics(logFile, findings))
    table.AddMarkup({HtmlText(figure.Name), HtmlUtf8(figure.Value)});
  return HtmlPage("QELMARK - Log Statistics", Heading("Log Statistics", LogName(logFile)) + "<main>\n" +
                                                  Section("statistics", table.Finish()) + "</main>\n");
}

}  // namespace qel
