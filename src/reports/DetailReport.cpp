#include "reports/DetailReport.h"

#include <utility>

#include "analysis/AnalysisResult.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/Period.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "reports/DetailLines.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

constexpr int NotesWidth = 6000;    // twips
constexpr int ErrorMarkLength = 8;  // of " ERROR -", which the grid shows in its own column

enum SubItem { ServiceItem = 1, StatusItem, DateItem, TimeItem, DurationItem, CostItem };

std::string SplitText(const CallCosts& costs) {
  return " Dialup: " + MoneyText(costs.DialCostNow) + " - Service: " + MoneyText(costs.ServiceCostNow) +
         " - Data: " + MoneyText(costs.DataCostNow);
}

std::string CostCell(const std::string& money) {
  return Blanks(CostWidth() - static_cast<int>(money.size())) + money;
}

// One end of a connection as text.
struct Stamp {
  Stamp(const Settings& settings, Date date, Date time)
      : Day(FormatDate(date, "Short Date")), Clock(FormatDate(time, TimeFormat(settings.ForceAMPM))) {}
  std::string Day, Clock;
};

// What text and grid both show of a connection.
struct LineTexts {
  LineTexts(const Settings& settings, const DetailLine& line)
      : Service(GetServiceName(settings, line.Connection.Number)),
        Start(settings, line.Connection.StartDate, line.Connection.StartTime),
        End(settings, line.Connection.EndDate, line.Connection.EndTime),
        Duration(FormatTime(static_cast<float>(line.Seconds), false)),
        Cost(settings.CalcCosts ? MoneyText(line.ConnectionCost) : "") {}
  std::string Service;
  Stamp Start, End;
  std::string Duration, Cost;
};

enum class Grid { None, Filled };

class DetailBuilder : ReportOf {
 public:
  DetailBuilder(const ReportOf& of, Grid grid, const Explaining& explaining)
      : ReportOf(of), grid(grid), explaining(explaining) {}
  ReportDocument Build();

 private:
  void FillColumns();
  void MakeRoom(std::size_t characters);
  void AddRows(ReportRow first, ReportRow second);
  std::string Header() const;
  void AddLine(const DetailLine& line);
  std::string TextOf(const DetailLine& line, const LineTexts& texts) const;
  std::string ExplanationOf(const DetailLine& line) const;
  ReportRow FirstRow(const DetailLine& line, const LineTexts& texts) const;
  ReportRow SecondRow(const DetailLine& line, const LineTexts& texts) const;
  void AddTotalsRow();
  std::string TotalsLine() const;
  int NotesItem() const { return settings.CalcCosts ? CostItem + 1 : CostItem; }
  std::string TotalTime() const { return FormatTime(totalSeconds, false); }

  const Grid grid;
  const Explaining explaining;
  ReportDocument document;
  const int costExtra = settings.CalcCosts ? CostWidth() : 0;
  float totalSeconds = 0;
  CallCosts totals;
  double totalCost = 0;
};

void DetailBuilder::FillColumns() {
  using enum ColumnAlignment;
  document.Columns = {ReportColumn(),   {"Service", Left}, {"Status", Centre},
                      {"Date", Centre}, {"Time", Centre},  {"Duration", Centre}};
  if (settings.CalcCosts) document.Columns.push_back({"Cost ", Right});
  document.Columns.push_back({" Notes", Left, NotesWidth});
}

// For one more connection, and where there is none left for it, for all of them: a long report grows once.
void DetailBuilder::MakeRoom(std::size_t characters) {
  constexpr std::size_t rowsALine = 3, charactersALine = 260;
  const auto lines = static_cast<std::size_t>(int{analysis.ConnectionCount});
  auto& rows = document.Rows;
  auto& text = document.ReportText;
  if (grid == Grid::Filled && rows.capacity() < rows.size() + rowsALine)
    rows.reserve(rows.size() + lines * rowsALine + 2);
  if (text.capacity() < text.size() + characters)
    text.reserve(text.size() + characters + lines * charactersALine);
}

void DetailBuilder::AddRows(ReportRow first, ReportRow second) {
  document.AddRow();
  document.Rows.push_back(std::move(first));
  document.Rows.push_back(std::move(second));
}

std::string DetailBuilder::Header() const {
  const bool warn = ErrorsAreShown(*this);
  return std::string(" QELMARK - Details Report") + NewLine + NewLine +
         " Beginning: " + FormatDate(period.PeriodStart, "Short Date") +
         (warn ? "    WARNING: Errors found in log." : "") + NewLine +
         " Ending:    " + FormatDate(period.PeriodEnd, "Short Date") +
         (warn ? "      Report may not be accurate." : "") + NewLine + " Period:    " + PeriodText(period) +
         NewLine + NewLine + " " + Dashes(52 + costExtra) + NewLine + NewLine;
}

std::string DetailBuilder::TextOf(const DetailLine& line, const LineTexts& texts) const {
  const std::string& notes = line.Connection.Notes;
  std::string text = " " + texts.Service + NewLine;
  if (line.Connection.HasError()) {
    text += Blanks(16) + texts.Start.Day + " " + texts.Start.Clock + NewLine;
    text += Blanks(3) + TidyNotes(notes) + NewLine;
  } else {
    text += "    Connect:    " + texts.Start.Day + " " + texts.Start.Clock + NewLine;
    text += "    Disconnect: " + texts.End.Day + " " + texts.End.Clock + NewLine;
    if (!notes.empty()) text += Blanks(3) + TidyNotes(notes) + NewLine;
  }
  text += Blanks(4) + Dashes(49 + costExtra) + NewLine;
  text += Blanks(4) + Blanks(49 - static_cast<int>(texts.Duration.size())) + texts.Duration;
  if (settings.CalcCosts) text += CostCell(texts.Cost);
  return text + NewLine + NewLine + (explaining.Wanted ? ExplanationOf(line) : "");
}

// The sentences in a column between the parts' names and the amounts.
std::string DetailBuilder::ExplanationOf(const DetailLine& line) const {
  constexpr int left = 13;
  constexpr std::size_t width = 53 - left;
  std::string text = Blanks(4) + PriceTitle(settings, line) + ":" + NewLine, before;
  for (const auto& piece : PriceLines(settings, line)) {
    std::string name = std::exchange(before, piece.Part) == piece.Part ? "" : piece.Part;
    for (std::string rest = piece.Text; !rest.empty(); name.clear()) {
      const auto blank = rest.size() <= width ? rest.size() : rest.rfind(' ', width);
      const std::string words = rest.substr(0, blank == std::string::npos ? width : blank);
      rest = std::string(Trim(rest.substr(words.size())));
      text += Blanks(4) + name + Blanks(left - 4 - static_cast<int>(name.size())) + words;
      if (rest.empty() && !piece.Cost.empty())
        text += Blanks(static_cast<int>(width - words.size())) + CostCell(piece.Cost);
      text += NewLine;
    }
  }
  return text + NewLine;
}

ReportRow DetailBuilder::FirstRow(const DetailLine& line, const LineTexts& texts) const {
  ReportRow row{.Text = " " + std::to_string(line.Index), .SubItems = {}};
  row.SubItems.reserve(static_cast<std::size_t>(NotesItem()));
  row.SetSubItem(ServiceItem, texts.Service);
  row.SetSubItem(StatusItem, line.Connection.HasError() ? "E R R O R" : "Connect");
  row.SetSubItem(DateItem, texts.Start.Day);
  row.SetSubItem(TimeItem, texts.Start.Clock);
  const std::string& notes = line.Connection.Notes;
  const bool marked = line.Connection.HasError() && notes.size() >= ErrorMarkLength;
  row.SetSubItem(NotesItem(), TidyNotes(marked ? notes.substr(ErrorMarkLength) : notes));
  return row;
}

ReportRow DetailBuilder::SecondRow(const DetailLine& line, const LineTexts& texts) const {
  ReportRow row;
  row.SubItems.reserve(static_cast<std::size_t>(NotesItem()));
  row.SetSubItem(StatusItem, line.Connection.HasError() ? "" : "Disconnect");
  row.SetSubItem(DateItem, texts.End.Day);
  row.SetSubItem(TimeItem, texts.End.Clock);
  row.SetSubItem(DurationItem, texts.Duration);
  if (!settings.CalcCosts) return row;
  row.SetSubItem(CostItem, texts.Cost);
  row.SetSubItem(NotesItem(), SplitText(line.Costs));
  return row;
}

// All that can fail comes before the first thing that stays.
void DetailBuilder::AddLine(const DetailLine& line) {
  const LineTexts texts(settings, line);
  const std::string text = TextOf(line, texts);
  MakeRoom(text.size());
  if (grid == Grid::Filled) AddRows(FirstRow(line, texts), SecondRow(line, texts));
  document.ReportText += text;
  for (const auto part : {&CallCosts::DialCostNow, &CallCosts::ServiceCostNow, &CallCosts::DataCostNow})
    totals.*part += line.Costs.*part;
  totalCost += line.ConnectionCost;
  totalSeconds += static_cast<float>(line.Seconds);
}

void DetailBuilder::AddTotalsRow() {
  ReportRow row;
  row.SetSubItem(ServiceItem, "TOTALS:");
  row.SetSubItem(DurationItem, TotalTime());
  if (settings.CalcCosts) row.SetSubItem(CostItem, MoneyText(totalCost));
  row.SetSubItem(NotesItem(), SplitText(totals));
  document.Rows.push_back(std::move(row));
}

std::string DetailBuilder::TotalsLine() const {
  std::string text = "TOTALS: " + TotalTime();
  if (settings.CalcCosts) text += CostCell(MoneyText(totalCost));
  return Blanks(53 + costExtra - static_cast<int>(text.size())) + text;
}

ReportDocument DetailBuilder::Build() {
  FillColumns();
  document.FillLabels(*this, "Details");
  document.fraNoConn = analysis.ConnectionCount == 0;
  document.ReportText = Header();
  CurrentDisplay().ShowProgress(true);
  ForEachDetailLine(*this, [this](const DetailLine& line) {
    if (explaining.Includes(line)) AddLine(line);
  });
  if (analysis.ConnectionCount > 0) {
    document.AddDottedRow();
    AddTotalsRow();
  }
  document.ReportText += TotalsLine() + NewLine + NewLine;
  CurrentDisplay().ShowProgress(false);
  return std::move(document);
}

ReportDocument BuildReport(const ReportOf& of, Grid grid, const Explaining& explaining) {
  SetTrace("QELAnalyse", "DisplayDetailReport");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReportDocument document = DetailBuilder(of, grid, explaining).Build();
  CurrentHost().SetMousePointer(MousePointer::Default);
  return document;
}

}  // namespace

ReportDocument DisplayDetailReport(const ReportOf& of) { return BuildReport(of, Grid::Filled, {}); }

std::string DetailReportText(const ReportOf& of, const Explaining& explaining) {
  return BuildReport(of, Grid::None, explaining).ReportText;
}

std::string DetailInOneLine(const Settings& settings, const DetailLine& line) {
  constexpr int momentWidth = 22;
  const LineTexts texts(settings, line);
  const std::string moment = texts.Start.Day + " " + texts.Start.Clock;
  const std::string notes(Trim(TidyNotes(line.Connection.Notes)));
  return Blanks(momentWidth - static_cast<int>(moment.size())) + moment + "  " + texts.Duration +
         (settings.CalcCosts ? CostCell(texts.Cost) : "") + "  " + texts.Service +
         (notes.empty() ? "" : "  " + notes);
}

}  // namespace qel
