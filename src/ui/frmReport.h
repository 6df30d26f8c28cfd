// The report window: Summary and Details of the latest analysis, each as text, as a list and as charts; or
// the text of a report that was saved before.
//
// Its handlers are told apart by what they are for: frmReport.cpp (life of the window, saving, printing),
// ReportViews.cpp (the views and their settings).
#pragma once

#include <string>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/DrawingView.h"
#include "controls/ListView.h"
#include "controls/TextControls.h"
#include "core/Display.h"
#include "reports/ReportDocument.h"
#include "reports/WrittenReport.h"
#include "ui/Windows.h"
#include "values/RunTimeError.h"

namespace qel {

class frmReport : public Window, private Display {
 public:
  explicit frmReport(Windows& owner);

  // Shows the latest analysis, anew where it is a fresh one. Ends the showing of a file.
  void ShowAnalysis();

  // Shows a saved report. What needs an analysis is disabled meanwhile, and the settings of the user's views
  // stay as they are. Raises where the file cannot be read; the window is then as it was.
  void OpenReport(const std::string& path);

  // Apply the stored settings of a report to the window; zero stands for what was never stored.
  void DoSummarySettings() { ApplySettings(Summary); }
  void DoDetailSettings() { ApplySettings(Details); }
  // Reads the window back into the settings of the report that is shown, if one is.
  void StoreSettings();
  void StatusUpdate();
  // In the list of the Details; nothing where it does not hold the connection.
  void SelectConnection(int number);
  // The list of the Details, where it stands.
  void ShowConnection(int connection);

  // Connections and totals are half made: no report is built of them.
  bool AnalysisUnderWay = false;

  ReportDocument Report;  // what is shown, saved and printed; its rows stand in ListView1

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuSaveAS{*this, "mnuSaveAS", [this] { mnuSaveAS_Click(); }};
  MenuItem mnuCopy{*this, "mnuCopy", [this] { mnuCopy_Click(); }};
  MenuItem mnuPrint{*this, "mnuPrint", [this] { mnuPrint_Click(); }};
  MenuItem mnuExit{*this, "mnuExit", [this] { mnuExit_Click(); }};
  MenuItem mnuView{*this, "mnuView"};
  MenuItem mnuSummary{*this, "mnuSummary", [this] { mnuSummary_Click(); }};
  MenuItem mnuDetails{*this, "mnuDetails", [this] { mnuDetails_Click(); }};
  MenuItem mnuRefresh{*this, "mnuRefresh",
                      [this] { mnuSummary.Checked ? mnuSummary_Click() : mnuDetails_Click(); }};
  MenuItem mnuExplain{*this, "mnuExplain", [this] { mnuExplain_Click(); }};
  MenuItem mnuOptions{*this, "mnuOptions"};
  MenuItem mnuFormatStd{*this, "mnuFormatStd", [this] { mnuFormatStd_Click(); }};
  MenuItem mnuListView{*this, "mnuListView", [this] { mnuListView_Click(); }};
  MenuItem mnuCharts{*this, "mnuCharts", [this] { mnuCharts_Click(); }};
  MenuItem mnuNumConnections{*this, "mnuNumConnections", [this] { mnuNumConnections_Click(); }};
  MenuItem mnuAutoArrange{*this, "mnuAutoArrange", [this] { mnuAutoArrange_Click(); }};
  MenuItem mnuFont{*this, "mnuFont"};
  MenuItem mnuFontIncrease{*this, "mnuFontIncrease", [this] { mnuFontIncrease_Click(); }};
  MenuItem mnuFontDecrease{*this, "mnuFontDecrease", [this] { mnuFontDecrease_Click(); }};
  MenuItem mnuSaveSettings{*this, "mnuSaveSettings", [this] { mnuSaveSettings_Click(); }};

  Toolbar Toolbar1{*this,
                   "Toolbar1",
                   {"", "Save", "Print", "", "Exit", "", "Summary", "Detail", "", "Standard", "List View", "",
                    "Bigger", "Smaller", "", "ShowNums", "", "Charts"}};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  StatusBar StatusBar1{*this, "StatusBar1"};
  ListView ListView1{*this, "ListView1"};
  Frame fraReportHeader{*this, "fraReportHeader"};
  Label RepTitle{*this, "RepTitle"};
  Label RepBegin{*this, "RepBegin"};
  Label RepEnd{*this, "RepEnd"};
  Label RepPeriod{*this, "RepPeriod"};
  Label RepDifference{*this, "RepDifference"};  // where the Summary differs from the connections
  Frame fraNoConn{*this, "fraNoConn"};
  Label RepWarnNoCon1{*this, "RepWarnNoCon1"};
  Frame fraWarning{*this, "fraWarning"};
  Label RepWarn1{*this, "RepWarn1"};
  Label RepWarn2{*this, "RepWarn2"};
  Label RepWarn3{*this, "RepWarn3"};
  RichTextBox ReportTextBox{*this, "ReportTextBox"};
  DrawingView ReportCharts{*this, "ReportCharts"};

 private:
  // What the window shows. Until the first report is built it has nothing to store.
  enum class Content { Nothing, Analysis, File };

  enum class View { Text, List, Charts };

  // What sets the two reports apart.
  struct Kind {
    const char* FileName;  // begins the name that saving proposes
    ReportDocument (*Build)(const ReportOf&);
    ReportViewSettings WindowSettings::*Settings;
    int LastRestored;     // the last of Column1 to Column7 that is applied
    const char* Warning;  // in RepWarn3
  };
  static const Kind Summary, Details;

  void Form_Load() override;
  void Form_Resize() override;
  void Form_Activate() override;
  bool Form_Unload() override;

  void Toolbar1_ButtonClick(const std::string& key);
  void mnuSaveAS_Click();
  void mnuCopy_Click();
  void mnuPrint_Click();
  void mnuExit_Click();
  void mnuSummary_Click();
  void mnuDetails_Click();
  void mnuFormatStd_Click();
  void mnuListView_Click();
  void mnuCharts_Click();
  void mnuNumConnections_Click();
  void mnuAutoArrange_Click();
  void mnuFontIncrease_Click();
  void mnuFontDecrease_Click();
  void mnuSaveSettings_Click();
  void ListView1_ColumnClick(int column);
  void mnuExplain_Click();

  // Of the Display: the progress of a report that is being built.
  void ShowProgress(bool visible) override;
  void Progress(Int16 percent) override;

  void EnableAnalysis(bool enabled);
  void BringToFront();
  void TellFailure(const std::string& what, const RunTimeError& error);
  std::string ProposedName() const;
  bool HasFigures() const;
  std::string Written(OutputFormat format);
  std::string SaveFilter() const;
  std::string PrintedText() const;

  ReportViewSettings& SettingsOf(const Kind& kind) { return windowSettings.*kind.Settings; }
  const Kind* CheckedReport() const;  // nullptr where neither is checked
  void ChooseReport(const Kind& kind);
  View RememberedView() const;
  void ChooseView(View view);
  void ShowView(View view);
  void DrawCharts();
  void BuildReport(const Kind& kind);
  void ShowDocument(const Kind& kind);
  void ShowDifferences(const Kind& kind);
  void ApplySettings(const Kind& kind);
  void ApplyListSettings(const Kind& kind);
  void EnableConnections(bool enabled);
  int SelectedConnection() const;
  void SetNumberColumn();
  void ChangeFontSize(float by);

  Content content = Content::Nothing;
  Settings shownSettings;  // and period: what the report that is shown was built with
  Period shownPeriod;
  std::string fileName;  // of the log that was analysed, or of the report that was opened
  bool AutoArrangeOn = false;
  bool building = false;  // a report; it yields, and coming to the front then must not build it anew
};

}  // namespace qel
