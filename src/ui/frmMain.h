// The main window: the period, the commands, what is known of the log. It stays open from start to end.
//
// Its handlers are told apart by what they are for: frmMain.cpp (life of the window, what is enabled when),
// MainPeriod.cpp (dates), MainCommands.cpp (menus and tool bar), RecentFiles.cpp, MainOptions.cpp
// (options and their files), MainTools.cpp (viewer, log tools, wizard),
// MainStatistics.cpp (panel, status line, animation), MainCall.cpp (the call under way).
#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "analysis/PeriodFields.h"
#include "analysis/RunningCall.h"
#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "core/Display.h"
#include "maintenance/ClearAndArchive.h"
#include "platform/FileWatch.h"
#include "ui/Windows.h"

namespace qel {

class frmMain : public Window, public Display, public PeriodFields {
 public:
  explicit frmMain(Windows& owner);

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuOpenLog{*this, "mnuOpenLog", [this] { mnuOpenLog_Click(); }};
  MenuItem mnuOpenArchive{*this, "mnuOpenArchive", [this] { mnuOpenArchive_Click(); }};
  MenuItem mnuOpenReport{*this, "mnuOpenReport", [this] { mnuOpenReport_Click(); }};
  MenuItem mnuRefresh{*this, "mnuRefresh", [this] { mnuRefresh_Click(); }};
  MenuItem mnuSetup{*this, "mnuSetup", [this] { mnuSetup_Click(); }};
  MenuItem mnuExport{*this, "mnuExport", [this] { mnuExport_Click(); }};
  MenuItem mnuImport{*this, "mnuImport", [this] { mnuImport_Click(); }};
  std::array<MenuItem, 5> mnuRecent{{{*this, "mnuRecent", 0},
                                     {*this, "mnuRecent", 1},
                                     {*this, "mnuRecent", 2},
                                     {*this, "mnuRecent", 3},
                                     {*this, "mnuRecent", 4}}};
  MenuItem mnuClrLst{*this, "mnuClrLst", [this] { mnuClrLst_Click(); }};
  MenuItem mnuExit{*this, "mnuExit"};
  MenuItem mnuTools{*this, "mnuTools"};
  MenuItem mnuViewLog{*this, "mnuViewLog", [this] { btnViewLog_Click(); }};
  MenuItem mnuClearLog{*this, "mnuClearLog", [this] { mnuClearLog_Click(); }};
  MenuItem mnuPurgeLog{*this, "mnuPurgeLog", [this] { mnuPurgeLog_Click(); }};
  MenuItem mnuOptimize{*this, "mnuOptimize", [this] { mnuOptimize_Click(); }};
  MenuItem mnuRepairLog{*this, "mnuRepairLog", [this] { mnuRepairLog_Click(); }};
  MenuItem mnuCompare{*this, "mnuCompare", [this] { mnuCompare_Click(); }};
  MenuItem mnuModemWizard{*this, "mnuModemWizard", [this] { mnuModemWizard_Click(); }};
  MenuItem mnuQuickDate{*this, "mnuQuickDate"};
  MenuItem mnuToday{*this, "mnuToday"};
  MenuItem mnuPlusWeek{*this, "mnuPlusWeek", [this] { SetActiveField(ActiveDate() + 7); }};
  MenuItem mnuMinusWeek{*this, "mnuMinusWeek", [this] { SetActiveField(ActiveDate() - 7); }};
  MenuItem mnuPlusMonth{*this, "mnuPlusMonth"};
  MenuItem mnuMinusMonth{*this, "mnuMinusMonth"};
  MenuItem mnuLogStart{*this, "mnuLogStart"};
  MenuItem mnuLogEnd{*this, "mnuLogEnd"};
  MenuItem mnuDefaultDate{*this, "mnuDefaultDate", [this] { mnuDefaultDate_Click(); }};
  MenuItem mnuHelp{*this, "mnuHelp"};
  MenuItem mnuTopics{*this, "mnuTopics"};
  MenuItem mnuReadme{*this, "mnuReadme", [this] { mnuReadme_Click(); }};
  MenuItem mnsSearchHelp{*this, "mnsSearchHelp"};
  MenuItem mnuHowToHelp{*this, "mnuHowToHelp"};
  MenuItem mnuTip{*this, "mnuTip"};
  MenuItem mnuAbout{*this, "mnuAbout", [this] { mnuAbout_Click(); }};

  Toolbar ToolbarMain{
      *this,
      "ToolbarMain",
      {"", "Open Archive", "Setup", "Exit", "", "View Modem Log", "Clear Modem Log", "Optimize Modem Log",
       "Repair Modem Log", "", "Today", "First Entry", "Last Entry", "", "Help", "Search Help", "About QEL"}};

  Picture imgStartArrow{*this, "imgStartArrow"};
  Label LabelStarting{*this, "LabelStarting"};
  MaskedEdit inputStarting{*this, "inputStarting"};
  UpDown UpDown1{*this, "UpDown1"};
  Picture imgEndArrow{*this, "imgEndArrow"};
  Label LabelEnding{*this, "LabelEnding"};
  MaskedEdit inputEnding{*this, "inputEnding"};
  UpDown UpDown2{*this, "UpDown2"};
  Label lblDateTitle{*this, "lblDateTitle"};
  Calendar Calendar1{*this, "Calendar1"};
  UpDown UpDown3{*this, "UpDown3"};
  UpDown UpDown4{*this, "UpDown4"};
  Button btnProcess{*this, "btnProcess", [this] { btnProcess_Click(); }};
  Button btnViewLog{*this, "btnViewLog", [this] { btnViewLog_Click(); }};
  Button btnExit{*this, "btnExit"};

  Label LabelHeading{*this, "LabelHeading"}, LabelHeading2{*this, "LabelHeading2"};
  Label LabelLogName{*this, "LabelLogName"}, LabelLogName2{*this, "LabelLogName2"};
  Label LabelLogPath{*this, "LabelLogPath"}, LabelLogPath2{*this, "LabelLogPath2"};
  Label LabelLogLength{*this, "LabelLogLength"}, LabelLogLength2{*this, "LabelLogLength2"};
  Label LabelLogEntries{*this, "LabelLogEntries"}, LabelLogEntries2{*this, "LabelLogEntries2"};
  Label LabelLogFirst{*this, "LabelLogFirst"}, LabelLogFirst2{*this, "LabelLogFirst2"};
  Label LabelLogLast{*this, "LabelLogLast"}, LabelLogLast2{*this, "LabelLogLast2"};
  Label LabelLogSpan{*this, "LabelLogSpan"}, LabelLogSpan2{*this, "LabelLogSpan2"};

  // The call under way, while there is one.
  Label LabelCall{*this, "LabelCall"}, LabelCall2{*this, "LabelCall2"};

  Picture imgGraphic{*this, "imgGraphic"};  // the drawing that ShowGraphic is about
  Picture PicAnimQel{*this, "PicAnimQel", [this] { TimerAnim.Enabled = !TimerAnim.Enabled; }};
  StatusBar StatusBarMain{*this, "StatusBarMain"};
  ProgressBar ProgressBar1{*this, "ProgressBar1"};
  Timer TimerAnim{*this, "TimerAnim", 100, [this] { TimerAnim_Timer(); }};
  Timer TimerCall{*this, "TimerCall", 1000, [this] { TimerCall_Timer(); }};
  Timer Timer1{*this, "Timer1", 5000, [this] { Timer1_Timer(); }};

  // Whether a timed message stands in the status bar.
  bool StatusHold = false;

  // Whether the automatic optimizing has been offered.
  bool AutoOptimizeDone = false;

  // Names the commands that view and optimize. While the viewer shows a log, the first close it, whatever
  // file is open by then; while it shows another text file, they are off.
  void NameLogCommands();

  void TakeArchiveTry(ArchiveTry made) { lastArchive = std::move(made); }

  // Reads an archive or another log in place of the default log.
  void OpenArchive(const std::string& path);
  // Shows a saved report in the report window.
  void DoOpenReport(const std::string& path);

 private:
  void WireCommands();
  void WirePeriod();

  void Form_Load() override;
  void Form_Resize() override;
  void Form_Activate() override;
  bool Form_Unload() override;
  void SaveMainWinSettings();
  void EnableByLog();
  bool NoUsableLog() const;
  bool DefaultLogIsThere() const;
  bool TellStateOfLog();
  void TellCorrupt();
  void OfferTip();
  void EnableRepair();

  // Display
  void StatusText(const std::string& text) override;
  void ShowProgress(bool visible) override;
  void Progress(Int16 percent) override;
  void WorkFailed(const std::string& reason) override;
  void ShowReport() override;

  // PeriodFields
  void ShowText(PeriodField field, const std::string& text) override;
  void Complain() override;
  void ShowOnCalendar(Date day) override { Calendar1.Value = day; }

  void setLogExtents();
  void checkProcess();
  void CalTitle();
  void DateField_Change(PeriodField field);
  void ForgetComplaint();
  void DateField_GotFocus(PeriodField field);
  void DateField_LostFocus(PeriodField field);
  void Calendar1_Click();
  void StepDay(PeriodField field, int days);
  void SetField(PeriodField field, Date day);
  void SetActiveField(Date day) { SetField(CurrentDateField, day); }
  Date ActiveDate() const;
  MaskedEdit& InputOf(PeriodField field);
  void mnuDefaultDate_Click();
  void btnProcess_Click();

  void ToolbarMain_ButtonClick(const std::string& key);
  void mnuOpenArchive_Click();
  void mnuOpenLog_Click();
  void mnuOpenReport_Click();
  void mnuSetup_Click();
  void mnuExport_Click();
  void mnuImport_Click();
  void mnuRefresh_Click();
  void mnuRecent_Click(std::size_t index);
  void mnuClrLst_Click();
  void mnuReadme_Click();
  void mnuAbout_Click();
  void AddRecentFile(const std::string& name, const std::string& path, const std::string& type);
  void SaveRecentFiles();
  void ShowRecentFiles();

  void btnViewLog_Click();
  void mnuClearLog_Click();
  void mnuPurgeLog_Click();
  void mnuOptimize_Click();
  void mnuRepairLog_Click();
  void mnuCompare_Click();
  void mnuModemWizard_Click();
  void Optimize();
  void DisableControls() { EnableControls(false); }
  void EnableControls(bool enabled);
  void EnableRecentMenu(bool state);
  bool ClearsUnsavedLog();
  void KeepWindowSize();
  void UseNewDefaultLog();
  void ShowAnew();
  void ShowActiveDate();
  void ReadLogAgain();
  void ReadDefaultLog(const std::string& folder, const std::string& file);

  void HideStatDisplay() { ShowStatLabels(false); }
  void DisplayStats() { ShowStatLabels(true); }
  void ShowStatLabels(bool visible);
  void SetStatDisplay();
  void SetDateStatistics();
  void SetStatus(int index);
  void ShowStatus();
  void Timer1_Timer();
  void TimerAnim_Timer();
  void PicAnimQel_DblClick();
  void TimerCall_Timer();
  bool FollowLog();
  void ShowCall(const std::optional<RunningCall>& call);
  void BeepAtThresholds(const RunningCall& call);

  // The default log while an archive is open, and whether it can be gone back to.
  std::string defaultLogFile, defaultLogDir;
  bool defaultLogUsable = false;

  // The default log as it grows, by the settings and for the period as they were when it was begun.
  struct FollowedNow {
    FollowedNow(const Settings& settings, const std::string& path, Date from)
        : settings(settings), from(from), log(this->settings, path, from), watch(path) {}
    const Settings settings;
    const Date from;
    FollowedLog log;
    FileWatch watch;
    int looksLeftOut = 0;
  };
  std::optional<FollowedNow> followed;
  Date callStart = 0;              // of the call that is shown
  std::set<Int16> exceededBefore;  // services whose thresholds it had reached by then

  std::optional<ArchiveTry> lastArchive;  // of this run

  Int16 animFrame;
  bool animBackward = false;
  bool animSecondRound = false;  // in the same direction
  bool animHidden = false;
  bool optionsOpen = false;
  bool datesChange = false;  // one of them, and what follows from it
  bool complained = false;   // of what they have changed to
  Int16 shownStatus;         // of StatusMessages
  bool laidOut = false;      // the stored size has been applied
};

}  // namespace qel
