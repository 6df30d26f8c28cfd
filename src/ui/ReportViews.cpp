// The views of the report window: two reports as text, list and charts, and what the window remembers of
// each.
#include <algorithm>
#include <utility>
#include <vector>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "reports/DetailReport.h"
#include "reports/SummaryDifference.h"
#include "reports/SummaryReport.h"
#include "reports/UseCharts.h"
#include "ui/frmPrice.h"
#include "ui/frmReport.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// Twips.
constexpr int ColumnWidth = 1440;  // of a column that nothing else gives a width
constexpr int MostRoom = 3600;     // that a text makes for itself
constexpr int NumberColumnWidth = 100;
constexpr int WidthLeftOut = 2200;  // of the list, when its columns share it
constexpr int LeastSharedWidth = 100;

constexpr int TwipsPerPoint = 20;
constexpr float TitleSize = 14;  // points

struct Measure {
  Int32 ReportViewSettings::*Stored;
  Property<int> Form::*Shown;
};

constexpr Measure Measures[] = {
    {&ReportViewSettings::WinHeight, &Form::Height},
    {&ReportViewSettings::WinWidth, &Form::Width},
    {&ReportViewSettings::WinTop, &Form::Top},
    {&ReportViewSettings::WinLeft, &Form::Left},
};

// The widths that the settings begin with. They show no whole date in the letters of today.
constexpr int FirstWidths[] = {1000, 1000, 700, 1000, 1000, 2000};

bool UserHasChosen(int width, std::size_t column) {
  return width != 0 && (column > std::size(FirstWidths) || width != FirstWidths[column - 1]);
}

// Twips for the widest text of a column: dates and times are longer in one region than in another.
int RoomFor(std::size_t column, const ReportDocument& document, float fontSize) {
  std::size_t longest = 0;
  for (const auto& row : document.Rows) {
    if (!row.IsRule && column <= row.SubItems.size())
      longest = std::max(longest, row.SubItems[column - 1].size());
  }
  const double digit = 0.6 * TwipsPerPoint * fontSize;
  return std::min(static_cast<int>(static_cast<double>(longest + 2) * digit), MostRoom);
}

std::vector<ListColumn> ListColumns(const ReportDocument& document, const ReportViewSettings& settings,
                                    float fontSize) {
  std::vector<ListColumn> made;
  made.reserve(document.Columns.size());
  for (const auto& column : document.Columns) {
    const std::size_t at = made.size();  // 0 is the leading column, which has no stored width
    const bool isOpen = at >= 1 && at <= settings.Column.size() && column.Width == 0 &&
                        !UserHasChosen(settings.Column[at - 1], at);
    made.push_back({column.Title, column.Width > 0 ? column.Width : ColumnWidth,
                    static_cast<ColumnAlign>(column.Alignment),
                    isOpen ? RoomFor(at, document, fontSize) : 0});
  }
  return made;
}

std::vector<ListRow> ListRows(std::vector<ReportRow> rows) {
  std::vector<ListRow> made;
  made.reserve(rows.size());
  for (auto& row : rows) made.push_back({std::move(row.Text), std::move(row.SubItems)});
  return made;
}

int ColumnCount(const ListView& list) { return static_cast<int>(list.Columns().size()); }

}  // namespace

// The width of the Notes, the seventh column of a report with costs, is the report's own.
const frmReport::Kind frmReport::Summary{"Summary", DisplaySummaryReport,
                                         &WindowSettings::SummaryViewSettings, 7, "Check details report."};
const frmReport::Kind frmReport::Details{"Detail", DisplayDetailReport, &WindowSettings::DetailViewSettings,
                                         6, "Report may be inaccurate."};

const frmReport::Kind* frmReport::CheckedReport() const {
  if (mnuSummary.Checked) return &Summary;
  return mnuDetails.Checked ? &Details : nullptr;
}

void frmReport::mnuSummary_Click() {
  SetTrace("frmReport", "mnuSummary_Click");
  ChooseReport(Summary);
}

void frmReport::mnuDetails_Click() {
  SetTrace("frmReport", "mnuDetails_Click");
  ChooseReport(Details);
}

void frmReport::mnuListView_Click() {
  SetTrace("frmReport", "mnuListView_Click");
  ChooseView(View::List);
}

void frmReport::mnuFormatStd_Click() {
  SetTrace("frmReport", "mnuFormatStd_Click");
  ChooseView(View::Text);
}

void frmReport::mnuCharts_Click() {
  SetTrace("frmReport", "mnuCharts_Click");
  ChooseView(View::Charts);
  ReportCharts.SetFocus();
}

// Opens the Details at the connection.
void frmReport::ShowConnection(int connection) {
  SetTrace("frmReport", "ShowConnection");
  StoreSettings();
  ChooseView(View::List);
  if (!mnuDetails.Checked) ChooseReport(Details);
  SelectConnection(connection);
  ListView1.SetFocus();
}

void frmReport::ChooseReport(const Kind& kind) {
  StoreSettings();
  const bool details = &kind == &Details;
  mnuSummary.Checked = Toolbar1.Button("Summary").Pressed = !details;
  mnuDetails.Checked = Toolbar1.Button("Detail").Pressed = details;
  EnableConnections(details && mnuListView.Checked);
  BuildReport(kind);
  ApplySettings(kind);
  Form_Resize();
  StatusUpdate();
}

frmReport::View frmReport::RememberedView() const {
  if (windowSettings.ReportCharts) return View::Charts;
  return windowSettings.ReportListView ? View::List : View::Text;
}

void frmReport::ChooseView(View view) {
  const bool list = view == View::List;
  windowSettings.ReportCharts = view == View::Charts;
  if (view != View::Charts) windowSettings.ReportListView = list;
  ShowView(view);
  mnuFont.Enabled = mnuAutoArrange.Enabled = list;
  Toolbar1.Button("Bigger").Enabled = Toolbar1.Button("Smaller").Enabled = list;
  EnableConnections(list && !mnuSummary.Checked);
  if (list) ApplySettings(mnuSummary.Checked ? Summary : Details);
  Form_Resize();
  SetNumberColumn();
  StatusUpdate();
}

void frmReport::ShowView(View view) {
  ReportTextBox.Visible = view == View::Text;
  ListView1.Visible = view == View::List;
  ReportCharts.Visible = view == View::Charts;
  fraReportHeader.Visible = view != View::Text;
  mnuListView.Checked = Toolbar1.Button("List View").Pressed = view == View::List;
  mnuFormatStd.Checked = Toolbar1.Button("Standard").Pressed = view == View::Text;
  mnuCharts.Checked = Toolbar1.Button("Charts").Pressed = view == View::Charts;
  DrawCharts();
}

// Of the report that is shown, and only while they are seen.
void frmReport::DrawCharts() {
  constexpr double width = 720;  // about a window's
  if (!mnuCharts.Checked || !HasFigures()) return ReportCharts.SetDrawings({});
  const Meanwhile here(CurrentSurroundings().Display, this);
  const Meanwhile now(building, true);
  ReportCharts.SetDrawings(ReportDrawings({analysis, shownSettings, shownPeriod}, width));
}

void frmReport::BuildReport(const Kind& kind) {
  const Meanwhile here(CurrentSurroundings().Display, this);
  const Meanwhile now(building, true);
  Attempt([&] {
    ShowDocument(kind);
    ShowDifferences(kind);
    // Also while the list is hidden: StoreSettings reads it back all the same.
    ApplyListSettings(kind);
  });
  ShowProgress(false);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void frmReport::ShowDocument(const Kind& kind) {
  ReportDocument document = kind.Build(session.Reported());
  shownSettings = settings;
  shownPeriod = period;
  (&kind == &Summary ? analysis.SummaryBuilt : analysis.DetailBuilt) = true;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  Report = std::move(document);
  ReportTextBox.Text = Report.ReportText;
  ReportTextBox.Select(0, 0);
  ReportTextBox.Emphasised = {Report.TitleStart, Report.TitleLength, TitleSize, true, true};
  RepTitle.Caption = Report.RepTitle;
  RepBegin.Caption = Report.RepBegin;
  RepEnd.Caption = Report.RepEnd;
  RepPeriod.Caption = Report.RepPeriod;
  fraWarning.Visible = Report.fraWarning;
  fraNoConn.Visible = Report.fraNoConn;
  ListView1.Clear();
  ListView1.SetColumns(ListColumns(Report, SettingsOf(kind), ListView1.Font->Size));
  SetNumberColumn();
  ListView1.SetRows(ListRows(std::exchange(Report.Rows, {})));
  ListView1.SelectRow(Report.SelectedRow);
  content = Content::Analysis;
  DrawCharts();
}

// As many services as a window has room for; the tool tip tells of all.
void frmReport::ShowDifferences(const Kind& kind) {
  constexpr std::size_t mostLines = 4;
  const std::vector<std::string> lines =
      &kind == &Summary ? SummaryDifferences(session.Reported()) : std::vector<std::string>();
  std::string shown, all;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    all += (i > 0 ? "\n" : "") + lines[i];
    if (i < mostLines) shown = all;
  }
  if (lines.size() > mostLines) shown += "\n(and " + std::to_string(lines.size() - mostLines) + " more)";
  RepDifference.Caption = shown;
  RepDifference.ToolTipText = all;
  RepDifference.Visible = !lines.empty();
}

void frmReport::ShowProgress(bool visible) {
  StatusBar1.Visible = !visible;
  ProgressBar1.Visible = visible;
}

void frmReport::Progress(Int16 percent) {
  if (percent != ProgressBar1.Value()) ProgressBar1.SetValue(percent);
}

void frmReport::ApplySettings(const Kind& kind) {
  if (WindowState == qel::WindowState::Normal)
    for (const auto& measure : Measures)
      if (const int stored = SettingsOf(kind).*measure.Stored; stored != 0) this->*measure.Shown = stored;
  if (mnuListView.Checked) ApplyListSettings(kind);
  RepWarn3.Caption = kind.Warning;
}

void frmReport::ApplyListSettings(const Kind& kind) {
  if (SettingsOf(kind).FontSize != 0) {
    Font font = ListView1.Font;
    font.Size = SettingsOf(kind).FontSize;
    ListView1.Font = font;
  }
  const int last = std::min(kind.LastRestored, ColumnCount(ListView1) - 1);
  for (int i = 1; i <= last; ++i)
    if (const int stored = SettingsOf(kind).Column[static_cast<std::size_t>(i - 1)]; stored != 0)
      ListView1.SetColumnWidth(i + 1, stored);
}

void frmReport::StoreSettings() {
  const Kind* kind = CheckedReport();
  if (content != Content::Analysis || !kind) return;
  if (WindowState == qel::WindowState::Normal)
    for (const auto& measure : Measures) SettingsOf(*kind).*measure.Stored = (this->*measure.Shown)();
  SettingsOf(*kind).FontSize = ListView1.Font->Size;
  for (std::size_t i = 1; i < ListView1.Columns().size(); ++i)
    SettingsOf(*kind).Column[i - 1] = ListView1.Columns()[i].Width;
}

void frmReport::StatusUpdate() {
  const bool list = mnuListView.Checked;
  const std::string told = ReportCharts.Told();
  StatusBar1.SetPanel(1, list                 ? " List View Format"
                         : !mnuCharts.Checked ? " Standard Format"
                         : told.empty()       ? " Charts"
                                              : " " + told);
  StatusBar1.SetPanel(2, !list ? "" : AutoArrangeOn ? " Auto Arrange On" : " Auto Arrange Off");
  StatusBar1.SetPanel(3, list ? " Font Size " + NumberText(ListView1.Font->Size) : "");
}

// The face's layout places the controls.
void frmReport::Form_Resize() {
  const int count = ColumnCount(ListView1);
  if (WindowState == qel::WindowState::Minimized || !AutoArrangeOn || count == 0) return;
  const double shared = 1.0 * (ListView1.Width - WidthLeftOut) / (count - 1);
  for (int i = 2; i <= count; ++i) {
    if (const int own = Report.Columns[static_cast<std::size_t>(i - 1)].Width; own > 0)
      ListView1.SetColumnWidth(i, own);
    else if (shared > LeastSharedWidth)
      ListView1.SetColumnWidth(i, Int32(shared));
  }
}

void frmReport::EnableConnections(bool enabled) {
  mnuNumConnections.Enabled = mnuExplain.Enabled = Toolbar1.Button("ShowNums").Enabled = enabled;
}

void frmReport::SetNumberColumn() {
  if (ListView1.Columns().empty()) return;
  const bool shown = mnuNumConnections.Enabled && mnuNumConnections.Checked;
  ListView1.SetColumnWidth(1, shown ? NumberColumnWidth : 0);
}

void frmReport::mnuNumConnections_Click() {
  if (!mnuNumConnections.Enabled) return;
  mnuNumConnections.Checked = Toolbar1.Button("ShowNums").Pressed = !mnuNumConnections.Checked;
  SetNumberColumn();
}

// Of a connection's two rows, and the blank one above them, the first bears its number.
int frmReport::SelectedConnection() const {
  const int row = ListView1.SelectedRow();
  if (row == 0) return 0;
  for (const int at : {row, row - 1, row + 1})
    if (at >= 1 && at <= ListView1.RowCount() && !ListView1.Row(at).Text.empty())
      return static_cast<int>(Val(ListView1.Row(at).Text));
  return 0;
}

void frmReport::SelectConnection(int number) {
  if (!mnuExplain.Enabled || SelectedConnection() == number) return;
  for (int row = 1; row <= ListView1.RowCount(); ++row)
    if (Val(ListView1.Row(row).Text) == number) return ListView1.SelectRow(row);
}

void frmReport::mnuExplain_Click() {
  const int connection = SelectedConnection();
  if (mnuExplain.Enabled && connection != 0 && HasFigures() && !building)
    windows.PriceForm->ShowPrice({analysis, shownSettings, shownPeriod}, connection);
}

void frmReport::mnuAutoArrange_Click() {
  AutoArrangeOn = !AutoArrangeOn;
  StatusUpdate();
  mnuAutoArrange.Checked = AutoArrangeOn;
  Form_Resize();
}

void frmReport::mnuFontIncrease_Click() { ChangeFontSize(1); }

void frmReport::mnuFontDecrease_Click() {
  if (ListView1.Font->Size >= 1) ChangeFontSize(-1);
}

void frmReport::ChangeFontSize(float by) {
  Font font = ListView1.Font;
  font.Size += by;
  ListView1.Font = font;
  StatusUpdate();
}

void frmReport::ListView1_ColumnClick(int column) {
  if (!mnuSummary.Checked) return;
  const ColumnKind shown = Report.Columns[static_cast<std::size_t>(column - 1)].Kind;
  if (shown == ColumnKind::Plain) return;
  analysis.ShowBlocks = shown == ColumnKind::DataRead;
  mnuSummary_Click();
}

}  // namespace qel
