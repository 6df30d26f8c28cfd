#include "reports/DetailReport.h"

#include "analysis/ConnectionNotes.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "core/CurrencyFormat.h"
#include "core/Display.h"
#include "core/GeneralFunctions.h"
#include "core/ProgramState.h"
#include "modemlog/DialledNumber.h"
#include "platform/FormatMask.h"
#include "platform/Host.h"
#include "platform/TextConversion.h"
#include "reports/DetailLines.h"
#include "settings/Settings.h"

namespace qel {

namespace {

constexpr int NotesWidth = 6000;    // twips
constexpr int ErrorMarkLength = 8;  // of " ERROR -", which the grid shows in its own column

enum SubItem { ServiceItem = 1, StatusItem, DateItem, TimeItem, DurationItem, CostItem };

struct Costs {
  double Dial = 0, Service = 0, Data = 0, Total = 0;
};

std::string SplitText(const Costs& costs) {
  return " Dialup: " + MoneyText(costs.Dial) + " - Service: " + MoneyText(costs.Service) +
         " - Data: " + MoneyText(costs.Data);
}

std::string CostCell(const std::string& money) {
  return Blanks(CostWidth() - static_cast<int>(money.size())) + money;
}

// One end of a connection as text.
struct Stamp {
  Stamp(Date date, Date time) : Day(FormatDate(date, "Short Date")), Clock(FormatDate(time, TimeFormat)) {}
  std::string Day, Clock;
};

// What text and grid both show of a connection.
struct LineTexts {
  explicit LineTexts(const DetailLine& line)
      : Service(GetServiceName(line.Connection.Number)),
        Start(line.Connection.StartDate, line.Connection.StartTime),
        End(line.Connection.EndDate, line.Connection.EndTime),
        Duration(FormatTime(static_cast<float>(line.Seconds), false)),
        Cost(CalcCosts ? MoneyText(line.ConnectionCost) : "") {}
  std::string Service;
  Stamp Start, End;
  std::string Duration, Cost;
};

class DetailBuilder {
 public:
  ReportDocument Build();

 private:
  void FillColumns();
  void ReserveRoom();
  std::string Header() const;
  void AddLine(const DetailLine& line);
  void AddText(const DetailLine& line, const LineTexts& texts);
  void AddRows(const DetailLine& line, const LineTexts& texts);
  void AddTotalsRow();
  std::string TotalsLine() const;
  int NotesItem() const { return CalcCosts ? CostItem + 1 : CostItem; }
  std::string TotalTime() const { return FormatTime(totalSeconds, false); }

  ReportDocument document;
  std::string body;
  const int costExtra = CalcCosts ? CostWidth() : 0;
  float totalSeconds = 0;
  Costs totals;
};

void DetailBuilder::FillColumns() {
  using enum ColumnAlignment;
  document.Columns = {ReportColumn(),   {"Service", Left}, {"Status", Centre},
                      {"Date", Centre}, {"Time", Centre},  {"Duration", Centre}};
  if (CalcCosts) document.Columns.push_back({"Cost ", Right});
  document.Columns.push_back({" Notes", Left, NotesWidth});
}

// A long report grows once, not again and again.
void DetailBuilder::ReserveRoom() {
  constexpr std::size_t rowsALine = 3, charactersALine = 260;
  const auto lines = static_cast<std::size_t>(int{ConnectionCount});
  document.Rows.reserve(lines * rowsALine + 2);
  body.reserve(lines * charactersALine);
}

std::string DetailBuilder::Header() const {
  const bool warn = ErrorsAreShown();
  return std::string(" QELMARK - Details Report") + NewLine + NewLine +
         " Beginning: " + FormatDate(PeriodStart, "Short Date") +
         (warn ? "    WARNING: Errors found in log." : "") + NewLine +
         " Ending:    " + FormatDate(PeriodEnd, "Short Date") +
         (warn ? "      Report may not be accurate." : "") + NewLine + " Period:    " + PeriodText() +
         NewLine + NewLine + " " + Dashes(52 + costExtra) + NewLine + NewLine;
}

void DetailBuilder::AddText(const DetailLine& line, const LineTexts& texts) {
  const std::string& notes = line.Connection.Notes;
  body += " " + texts.Service + NewLine;
  if (line.HasError) {
    body += Blanks(16) + texts.Start.Day + " " + texts.Start.Clock + NewLine;
    body += Blanks(3) + TidyNotes(notes) + NewLine;
  } else {
    body += "    Connect:    " + texts.Start.Day + " " + texts.Start.Clock + NewLine;
    body += "    Disconnect: " + texts.End.Day + " " + texts.End.Clock + NewLine;
    if (!notes.empty()) body += Blanks(3) + TidyNotes(notes) + NewLine;
  }
  body += Blanks(4) + Dashes(49 + costExtra) + NewLine;
  body += Blanks(4) + Blanks(49 - static_cast<int>(texts.Duration.size())) + texts.Duration;
  if (CalcCosts) body += CostCell(texts.Cost);
  body += std::string(NewLine) + NewLine;
}

void DetailBuilder::AddRows(const DetailLine& line, const LineTexts& texts) {
  document.AddRow();
  ReportRow& first = document.AddRow(" " + std::to_string(line.Index));
  first.SubItems.reserve(static_cast<std::size_t>(NotesItem()));
  first.SetSubItem(ServiceItem, texts.Service);
  first.SetSubItem(StatusItem, line.HasError ? "E R R O R" : "Connect");
  first.SetSubItem(DateItem, texts.Start.Day);
  first.SetSubItem(TimeItem, texts.Start.Clock);
  const std::string& notes = line.Connection.Notes;
  const bool marked = line.HasError && notes.size() >= ErrorMarkLength;
  first.SetSubItem(NotesItem(), TidyNotes(marked ? notes.substr(ErrorMarkLength) : notes));
  ReportRow& second = document.AddRow();
  second.SubItems.reserve(static_cast<std::size_t>(NotesItem()));
  second.SetSubItem(StatusItem, line.HasError ? "" : "Disconnect");
  second.SetSubItem(DateItem, texts.End.Day);
  second.SetSubItem(TimeItem, texts.End.Clock);
  second.SetSubItem(DurationItem, texts.Duration);
  if (!CalcCosts) return;
  second.SetSubItem(CostItem, texts.Cost);
  second.SetSubItem(NotesItem(), SplitText({line.DialCost, line.ServiceCost, line.DataCost}));
}

void DetailBuilder::AddLine(const DetailLine& line) {
  const LineTexts texts(line);
  AddText(line, texts);
  AddRows(line, texts);
  totals.Dial += line.DialCost;
  totals.Service += line.ServiceCost;
  totals.Data += line.DataCost;
  totals.Total += line.ConnectionCost;
  totalSeconds += static_cast<float>(line.Seconds);
}

void DetailBuilder::AddTotalsRow() {
  ReportRow& row = document.AddRow();
  row.SetSubItem(ServiceItem, "TOTALS:");
  row.SetSubItem(DurationItem, TotalTime());
  if (CalcCosts) row.SetSubItem(CostItem, MoneyText(totals.Total));
  row.SetSubItem(NotesItem(), SplitText(totals));
}

std::string DetailBuilder::TotalsLine() const {
  std::string text = "TOTALS: " + TotalTime();
  if (CalcCosts) text += CostCell(MoneyText(totals.Total));
  return Blanks(53 + costExtra - static_cast<int>(text.size())) + text;
}

ReportDocument DetailBuilder::Build() {
  FillColumns();
  document.FillLabels("Details");
  document.fraNoConn = ConnectionCount == 0;
  CurrentDisplay().ShowProgress(true);
  ReserveRoom();
  ForEachDetailLine([this](const DetailLine& line) { AddLine(line); });
  if (ConnectionCount > 0) {
    document.AddDottedRow();
    AddTotalsRow();
  }
  body += TotalsLine() + NewLine + NewLine;
  document.ReportText = std::move(body);
  document.ReportText.insert(0, Header());
  CurrentDisplay().ShowProgress(false);
  return std::move(document);
}

}  // namespace

ReportDocument DisplayDetailReport() {
  SetTrace("QELAnalyse", "DisplayDetailReport");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReportDocument document = DetailBuilder().Build();
  DetailBuilt = true;
  CurrentHost().SetMousePointer(MousePointer::Default);
  return document;
}

}  // namespace qel
