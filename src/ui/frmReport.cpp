#include "ui/frmReport.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "core/Surroundings.h"
#include "platform/Files.h"
#include "settings/SettingRow.h"
#include "settings/UserParameters.h"
#include "ui/HelpNumbers.h"
#include "values/CodePage.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

// Report windows name what they show, and so do the documents that they print.
std::string CaptionOf(const std::string& file) { return "QEL Report - (" + PathText(file) + ")"; }

constexpr char TextFilter[] = "Text (*.txt)|*.txt";

// What else an analysis can be saved as.
constexpr struct {
  const char* Extension;
  const char* Filter;
  OutputFormat Format;
} FigureFiles[] = {{".HTML", "Web Page (*.html)|*.html", OutputFormat::Html},
                   {".CSV", "CSV (*.csv)|*.csv", OutputFormat::Csv},
                   {".JSON", "JSON (*.json)|*.json", OutputFormat::Json}};

OutputFormat FormatOf(const std::string& path) {
  for (const auto& kind : FigureFiles)
    if (UpperCase(path).ends_with(kind.Extension)) return kind.Format;
  return OutputFormat::Text;
}

}  // namespace

frmReport::frmReport(Windows& owner) : Window("frmReport", owner) {
  HelpContextID = HelpReportWindow;
  ListView1.Font = {"Arial", 9};
  ReportTextBox.Font = {"Courier New", 10};
  ReportTextBox.Locked = true;
  ProgressBar1.Visible = RepDifference.Visible = false;
  StatusBar1.SetPanelCount(3);
  Toolbar1.ButtonClick = [this](const std::string& key) { Toolbar1_ButtonClick(key); };
  ListView1.ColumnClick = [this](int column) { ListView1_ColumnClick(column); };
  ListView1.DblClick = [this] { mnuExplain_Click(); };
  ListView1.KeyDown = [this](KeyPress& press) {
    if (press.key != Key::Enter) return;
    press.Handled = true;
    mnuExplain_Click();
  };
  ReportCharts.PlaceChange = [this] { StatusUpdate(); };
  ReportCharts.TargetClick = [this](int connection) { ShowConnection(connection); };
}

void frmReport::Toolbar1_ButtonClick(const std::string& key) {
  const std::map<std::string, const MenuItem*> items = {
      {"Save", &mnuSaveAS},
      {"Print", &mnuPrint},
      {"Exit", &mnuExit},
      {"Summary", &mnuSummary},
      {"Detail", &mnuDetails},
      {"Standard", &mnuFormatStd},
      {"List View", &mnuListView},
      {"Bigger", &mnuFontIncrease},
      {"Smaller", &mnuFontDecrease},
      {"ShowNums", &mnuNumConnections},
      {"Charts", &mnuCharts},
  };
  items.at(key)->Click();
}

void frmReport::Form_Load() {
  SetTrace("frmReport", "Form_Load");
  Toolbar1.Flat = settings.FlatToolbars;
  analysis.SummaryBuilt = analysis.DetailBuilt = false;
  mnuSaveSettings.Checked = windowSettings.SaveReportSettings;
  mnuAutoArrange.Checked = AutoArrangeOn = windowSettings.ReportAutoArrange;
  mnuSummary.Checked = settings.UserReportPref == 0;
  mnuDetails.Checked = settings.UserReportPref == 1;
  // Last, since it applies the settings of the report that is checked.
  ChooseView(RememberedView());
}

void frmReport::Form_Activate() {
  SetTrace("frmReport", "Form_Activate");
  Toolbar1.Visible = settings.ShowToolbars;
  Form_Resize();
  // Only a fresh analysis is one of the current log: another one may have been opened since.
  const bool fresh =
      content != Content::File && !analysis.SummaryBuilt && !analysis.DetailBuilt && !AnalysisUnderWay;
  if (fresh) fileName = logFile.CurrentLogFile;
  Caption = CaptionOf(fileName);
  if (content == Content::File || AnalysisUnderWay || building) return;
  if (mnuDetails.Checked && !analysis.DetailBuilt) mnuDetails_Click();
  if (mnuSummary.Checked && !analysis.SummaryBuilt) mnuSummary_Click();
}

bool frmReport::Form_Unload() {
  SetTrace("frmReport", "Form_Unload");
  StoreSettings();
  windowSettings.SaveReportSettings = mnuSaveSettings.Checked();
  windowSettings.ReportAutoArrange = mnuAutoArrange.Checked();
  if (windowSettings.SaveReportSettings)
    session.StoreSettings();
  else
    WriteSaveSettings(store, "\\ViewReport", windowSettings.SaveReportSettings);
  return true;
}

void frmReport::BringToFront() {
  if (WindowState == qel::WindowState::Minimized) WindowState = qel::WindowState::Normal;
  const bool inFront = Screen.ActiveForm == this;  // Show then activates nothing
  Show();
  if (inFront) Form_Activate();
}

void frmReport::ShowAnalysis() {
  if (content == Content::File) {
    content = Content::Nothing;
    EnableAnalysis(true);
    ChooseView(RememberedView());
  }
  BringToFront();
}

void frmReport::OpenReport(const std::string& path) {
  std::string text = ReadWholeFile(path);
  Load();
  StoreSettings();
  content = Content::File;
  fileName = FileNamePart(path);
  Report = {};
  Report.ReportText = std::move(text);
  ReportTextBox.Emphasised = RichTextBox::Emphasis{};
  ReportTextBox.Text = Report.ReportText;
  ReportTextBox.Select(0, 0);
  ListView1.Clear();
  ListView1.SetColumns({});
  ReportCharts.SetDrawings({});
  RepDifference.Visible = false;
  ShowView(View::Text);
  EnableAnalysis(false);
  StatusUpdate();
  BringToFront();
}

// What has no meaning for the text of a file.
void frmReport::EnableAnalysis(bool enabled) {
  for (Control* item : {&mnuSummary, &mnuDetails, &mnuRefresh, &mnuFormatStd, &mnuListView, &mnuCharts,
                        &mnuNumConnections, &mnuExplain, &mnuAutoArrange, &mnuFont})
    item->Enabled = enabled;
  for (const char* key :
       {"Summary", "Detail", "Standard", "List View", "Bigger", "Smaller", "ShowNums", "Charts"})
    Toolbar1.Button(key).Enabled = enabled;
}

std::string frmReport::ProposedName() const {
  if (content == Content::File) return fileName;
  const Kind* kind = CheckedReport();
  const std::string name = std::string(kind ? kind->FileName : Summary.FileName) + " " +
                           FormatDate(period.PeriodStart, "ddmmmyy") + " - " +
                           FormatDate(period.PeriodEnd, "ddmmmyy");
  return ToUtf8(name);
}

// Of the analysis that is shown, if there is one and it still stands.
bool frmReport::HasFigures() const {
  return content == Content::Analysis && !AnalysisUnderWay && (analysis.SummaryBuilt || analysis.DetailBuilt);
}

// The report that the user sees, whatever dates and options have become since; its text in the window's
// bytes.
std::string frmReport::Written(OutputFormat format) {
  if (content == Content::File) return Report.ReportText;
  if (format == OutputFormat::Text || !HasFigures()) return Report.ReportText + NewLine;
  const Meanwhile here(CurrentSurroundings().Display, this);
  const Meanwhile now(building, true);
  LogFile analysed = logFile;  // another one may have been opened since
  analysed.CurrentLogFile = fileName;
  return WrittenReport({analysis, shownSettings, shownPeriod}, analysed,
                       mnuDetails.Checked ? ReportKind::Details : ReportKind::Summary, format);
}

// The kind that shows what the window does stands first.
std::string frmReport::SaveFilter() const {
  std::vector<std::string> kinds = {TextFilter};
  if (HasFigures())
    for (const auto& kind : FigureFiles) kinds.push_back(kind.Filter);
  if (mnuCharts.Checked && HasFigures()) std::swap(kinds[0], kinds[1]);
  std::string filter;
  for (const auto& kind : kinds) filter += (filter.empty() ? "" : "|") + kind;
  return filter;
}

void frmReport::mnuSaveAS_Click() {
  SetTrace("frmReport", "mnuSaveAS_Click");
  StatusUpdate();
  const std::optional<std::string> path = CurrentHost().AskSaveFile(
      {.Filter = SaveFilter(), .Folder = places.AppPath, .FileName = ProposedName()});
  if (!path) return;
  try {
    ReplaceFile(*path, Written(FormatOf(*path)));
  } catch (const RunTimeError& error) {
    TellFailure("saved", error);
  }
}

void frmReport::mnuCopy_Click() {
  SetTrace("frmReport", "mnuCopy_Click");
  StatusUpdate();
  if (!HasFigures()) return CurrentHost().SetClipboardText(Report.ReportText);
  try {
    CurrentHost().SetClipboardPage(Report.ReportText, Written(OutputFormat::Html));
  } catch (const RunTimeError& error) {
    TellFailure("copied", error);
  }
}

// What stands above the charts is the head of the report, with what warns of it.
std::string frmReport::PrintedText() const {
  if (!mnuCharts.Checked) return Report.ReportText;
  std::string text = " " + Report.RepTitle + NewLine + NewLine + " " + Report.RepBegin + " to " +
                     Report.RepEnd + " (" + Report.RepPeriod + ")" + NewLine;
  if (Report.fraWarning)
    text += std::string(" WARNING: Errors found in log. Report may not be accurate.") + NewLine;
  if (Report.fraNoConn) text += std::string(" No connections made during this period.") + NewLine;
  return text + NewLine;
}

void frmReport::mnuPrint_Click() {
  SetTrace("frmReport", "mnuPrint_Click");
  StatusUpdate();
  try {
    PrintJob job{.Title = Caption, .Text = PrintedText()};
    job.Drawings = ReportCharts.Drawings();
    CurrentHost().Print(job);
  } catch (const RunTimeError& error) {
    TellFailure("printed", error);
  }
}

// No dialogue: the next StatusUpdate takes the words away.
void frmReport::TellFailure(const std::string& what, const RunTimeError& error) {
  StatusBar1.SetPanel(1, " Report not " + what + ": " + error.Description());
  CurrentHost().Beep();
}

void frmReport::mnuExit_Click() { Unload(); }

void frmReport::mnuSaveSettings_Click() {
  windowSettings.SaveReportSettings = !windowSettings.SaveReportSettings;
  mnuSaveSettings.Checked = windowSettings.SaveReportSettings;
}

}  // namespace qel
