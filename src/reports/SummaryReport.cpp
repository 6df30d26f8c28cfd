#include "reports/SummaryReport.h"

#include "analysis/Period.h"
#include "analysis/Pricing.h"
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

struct TextColumn {
  std::string Title;
  int Width;  // characters of the text report
  ColumnAlignment Alignment;
};

// The columns of the text, by their number.
enum Column {
  ServiceColumn = 1,
  TimeColumn,
  SessionsColumn,
  AvSessionColumn,
  AvDayColumn,
  UseColumn,
  CostColumn
};

std::string WholeTime(float seconds) { return std::string(Trim(FormatTime(seconds, false))); }

float Quotient(Int32 seconds, Int16 divisor) {
  if (divisor == 0) Raise(DivisionByZero);
  return static_cast<float>(seconds) / static_cast<float>(divisor);
}

std::string BlocksText(int blocks, Int32 minutes) {
  return std::to_string(blocks) + " (" + FormatTime(static_cast<float>(minutes * 60), true) + ")";
}

class SummaryBuilder : ReportOf {
 public:
  explicit SummaryBuilder(const ReportOf& of) : ReportOf(of) {}
  ReportDocument Build();

 private:
  void FillColumns();
  std::string Header() const;
  std::string Heading() const;
  void AddSlot(const ServiceTotal& total);
  void SetTimes(const ServiceTotal& total, ReportRow& row) const;
  std::string TakeUse(const ServiceTotal& total);
  std::string LineOf(const ReportRow& row) const;
  void AddRow(const ReportRow& row);
  void AddTotalsRow();
  std::string TotalsLine() const;

  // One cell of the text, the value in front of the blanks or behind them.
  std::string Before(int column, const std::string& value) const { return value + PadFor(column, value); }
  std::string Behind(int column, const std::string& value) const { return PadFor(column, value) + value; }
  std::string PadFor(int column, const std::string& value) const {
    return Blanks(WidthOf(column) - static_cast<int>(value.size()));
  }
  int WidthOf(int column) const { return columns[static_cast<std::size_t>(column - 1)].Width; }
  std::string UseTotal() const;

  ReportDocument document;
  std::vector<TextColumn> columns;  // those that are shown
  int totalWidth = 0;
  bool anyConnections = false;
  std::string rows;

  float totalTime = 0;
  Int16 totalSessions;
  double totalKilobytes = 0;
  Int16 totalBlocks;
  Int32 totalBlockMinutes;
  double totalCost = 0;
  std::string useTotal;  // of blocks or data
};

void SummaryBuilder::FillColumns() {
  using enum ColumnAlignment;
  columns = {{"Service", 16, Left},
             {"Qelmark", 15, Centre},
             {"Sessions", 11, Centre},
             {"AvSession", 13, Centre},
             {"AvDay", 8, Centre},
             {analysis.ShowBlocks ? "* Blocks" : "* Data Read", analysis.ShowBlocks ? 14 : 12, Right}};
  if (settings.CalcCosts) columns.push_back({"Cost", CostWidth(), Right});
  document.Columns = {ReportColumn()};
  for (const auto& column : columns) {
    totalWidth += column.Width;
    document.Columns.push_back({column.Title, column.Alignment});
  }
  document.Columns[UseColumn].Kind = analysis.ShowBlocks ? ColumnKind::Blocks : ColumnKind::DataRead;
}

std::string SummaryBuilder::Header() const {
  const bool warn = ErrorsAreShown(*this);
  return std::string(" QELMARK - Summary Report") + NewLine + NewLine +
         " Beginning: " + FormatDate(period.PeriodStart, "long date") +
         (warn ? "        WARNING: Errors found in log!" : "") + NewLine +
         " Ending:    " + FormatDate(period.PeriodEnd, "long date") +
         (warn ? "                 Check details report." : "") + NewLine +
         " Period:    " + PeriodText(period) + NewLine;
}

std::string SummaryBuilder::Heading() const {
  const std::string rule = " " + Dashes(totalWidth) + NewLine;
  std::string titles = " ";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool right = columns[i].Alignment == ColumnAlignment::Right;
    const int number = static_cast<int>(i) + 1;
    titles += right ? Behind(number, columns[i].Title) : Before(number, columns[i].Title);
  }
  return std::string(" ") + NewLine + rule + titles + NewLine + rule;
}

std::string NameCell(const std::string& name, int width) {
  const std::string trimmed(Trim(name));
  const int length = static_cast<int>(trimmed.size());
  // A name that would just fit is cut too, so that a blank always stands before the next column.
  if (length < width) return trimmed + Blanks(width - length);
  return trimmed.substr(0, static_cast<std::size_t>(width - 4)) + "... ";
}

void SummaryBuilder::SetTimes(const ServiceTotal& total, ReportRow& row) const {
  const auto average = [&](Column column, Int16 divisor) {
    Attempt([&] { row.SetSubItem(column, WholeTime(Quotient(total.Seconds, divisor))); });
  };
  average(AvSessionColumn, total.Connections);
  average(AvDayColumn, period.PeriodDays);
}

// The cell of blocks or data; gives what the grid shows.
std::string SummaryBuilder::TakeUse(const ServiceTotal& total) {
  if (analysis.ShowBlocks) {
    const Int16 minutes = total.Blocks * Pricing(settings, period).ServiceBlockMinutes(total.Number);
    std::string value = BlocksText(total.Blocks, minutes);
    Attempt([&] { totalBlocks += total.Blocks; });
    totalBlockMinutes += minutes;
    return value;
  }
  std::string value = FormatNumber(total.BytesRead / 1024.0, "#,##0");
  const double kilobytes = TextToNumber(value);
  value += "K";
  totalKilobytes += kilobytes;  // the total is that of the figures shown
  return value;
}

// The cells of the grid in the columns of the text; a row that ends early ends here too.
std::string SummaryBuilder::LineOf(const ReportRow& row) const {
  const auto cell = [&row](int column) { return row.SubItems[static_cast<std::size_t>(column - 1)]; };
  std::string line = " " + NameCell(cell(ServiceColumn), WidthOf(ServiceColumn));
  for (int column = TimeColumn; column <= static_cast<int>(row.SubItems.size()); ++column) {
    const std::string value = cell(column);
    if (column < UseColumn)
      line += Before(column, value);
    else if (column == UseColumn && !analysis.ShowBlocks && !value.empty())
      line += Behind(column, value.substr(0, value.size() - 1)) + "K";  // which hangs over the column
    else
      line += Behind(column, value);
  }
  return line + NewLine;
}

// A cell or a sum that fails is left out where the user goes on, and nothing else.
void SummaryBuilder::AddSlot(const ServiceTotal& total) {
  ReportRow row;
  const bool begun = Attempt([&] {
    row.SubItems.resize(total.Seconds <= 0 ? SessionsColumn : settings.CalcCosts ? CostColumn : UseColumn);
    row.SetSubItem(ServiceColumn, GetServiceName(settings, total.Number));
    row.SetSubItem(TimeColumn, WholeTime(static_cast<float>(total.Seconds)));
    row.SetSubItem(SessionsColumn, std::to_string(total.Connections));
  });
  if (!begun) return;
  totalTime += static_cast<float>(total.Seconds);
  Attempt([&] { totalSessions += total.Connections; });
  if (total.Seconds > 0) {
    SetTimes(total, row);
    Attempt([&] { row.SetSubItem(UseColumn, TakeUse(total)); });
    if (settings.CalcCosts) {
      row.SetSubItem(CostColumn, MoneyText(ShownCost(total)));
      totalCost += ShownCost(total);
    }
  }
  Attempt([&] { AddRow(row); });
}

void SummaryBuilder::AddRow(const ReportRow& row) {
  const std::string line = LineOf(row);
  rows.reserve(rows.size() + line.size());
  document.Rows.push_back(row);
  rows += line;
}

std::string SummaryBuilder::UseTotal() const {
  return analysis.ShowBlocks ? BlocksText(totalBlocks, totalBlockMinutes)
                             : FormatNumber(totalKilobytes, "#,##0") + "K";
}

void SummaryBuilder::AddTotalsRow() {
  ReportRow row;
  row.SetSubItem(ServiceColumn, "TOTALS:");
  row.SetSubItem(TimeColumn, WholeTime(totalTime));
  row.SetSubItem(SessionsColumn, std::to_string(totalSessions));
  row.SetSubItem(UseColumn, useTotal);
  if (settings.CalcCosts) row.SetSubItem(CostColumn, MoneyText(totalCost));
  document.Rows.push_back(std::move(row));
}

std::string SummaryBuilder::TotalsLine() const {
  const std::string cost = anyConnections && settings.CalcCosts ? MoneyText(totalCost) : "";
  return " " + Dashes(totalWidth) + NewLine + " " + Before(ServiceColumn, "TOTALS:") +
         Before(TimeColumn, WholeTime(totalTime)) + Before(SessionsColumn, std::to_string(totalSessions)) +
         Blanks(WidthOf(AvSessionColumn) + WidthOf(AvDayColumn)) + Behind(UseColumn, useTotal) +
         Blanks(CostWidth() - static_cast<int>(cost.size())) + cost;
}

ReportDocument SummaryBuilder::Build() {
  FillColumns();
  document.FillLabels(*this, "Summary");
  document.AddRow();
  anyConnections = !analysis.ServiceTotals[0].Number.empty() || analysis.TotalsCount > 0;
  if (anyConnections) {
    for (int slot = FirstSlotShown(analysis); slot <= analysis.TotalsCount; ++slot)
      AddSlot(analysis.ServiceTotals[slot]);
    useTotal = UseTotal();
    document.AddDottedRow();
    Attempt([this] { AddTotalsRow(); });
  } else {
    rows = std::string(NewLine) + " No Connections Made During his Period." + NewLine;
  }
  document.fraNoConn = !anyConnections;
  document.ReportText = Header() + Heading() + rows + TotalsLine();
  document.SelectedRow = static_cast<int>(document.Rows.size());
  return std::move(document);
}

}  // namespace

ReportDocument DisplaySummaryReport(const ReportOf& of) {
  SetTrace("QELAnalyse", "DisplaySummaryReport");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReportDocument document = SummaryBuilder(of).Build();
  CurrentHost().SetMousePointer(MousePointer::Default);
  return document;
}

Int16 FirstSlotShown(const AnalysisResult& analysis) { return analysis.ServiceTotals[0].Seconds > 0 ? 0 : 1; }

bool IsAnswered(const ServiceTotal& total) {
  return UpperCase(total.Number).find("ANSWER") != std::string::npos;
}

double ShownCost(const ServiceTotal& total) { return IsAnswered(total) ? 0 : total.TotalCost; }

}  // namespace qel
