#include "ui/frmMain.h"

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "modemlog/LogMessages.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/TextToDate.h"
#include "ui/DateField.h"
#include "ui/HelpNumbers.h"
#include "ui/frmReport.h"
#include "ui/frmTip.h"
#include "ui/frmViewLog.h"

namespace qel {

frmMain::frmMain(Windows& owner)
    : Window("frmMain", owner), PeriodFields(session.period, session.logFile, session.findings) {
  HelpContextID = HelpMainWindow;
  Calendar1.Value = Today();
  imgEndArrow.Visible = false;
  ProgressBar1.Visible = false;
  LabelCall.Visible = LabelCall2.Visible = false;
  WireCommands();
  WirePeriod();
  PicAnimQel.DblClick = [this] { PicAnimQel_DblClick(); };
}

void frmMain::Form_Load() {
  SetTrace("frmMain", "Form_Load");
  FormLoading = true;
  if (!laidOut) {
    if (windowSettings.MainWinWidth != 0) Width = windowSettings.MainWinWidth;
    if (windowSettings.MainWinHeight != 0) Height = windowSettings.MainWinHeight;
    laidOut = true;
  }
  if (settings.FlatToolbars) ToolbarMain.Flat = true;
  for (MaskedEdit* input : {&inputStarting, &inputEnding}) {
    MakeDateField(*input);
    input->Text = "";  // the rules run anew, whatever dates stood here
  }
  followed.reset();
  EnableByLog();
  setLogExtents();
  HideStatDisplay();
  SetStatDisplay();
  DisplayStats();
  StatusIndex = 1;  // dates that the window was given are nobody's mistake
  FormLoading = false;
  ForgetComplaint();
}

// There is a log, and its first and last entries have dates; nothing of the sort is asked of an archive.
bool frmMain::NoUsableLog() const {
  return !logFile.ArchiveOpen && (!findings.LogExists || findings.LogInvalid);
}

// Three cases: no usable log, a corrupt one, a usable file.
void frmMain::EnableByLog() {
  const bool noLog = NoUsableLog();
  const bool corrupt = !noLog && findings.LogCorrupt;
  const bool usable = !noLog && !corrupt;
  for (Control* control :
       std::initializer_list<Control*>{&mnuOptimize, &mnuQuickDate, &inputStarting, &inputEnding, &UpDown1,
                                       &UpDown2, &UpDown3, &UpDown4, &LabelStarting, &LabelEnding})
    control->Enabled = usable;
  NameLogCommands();
  for (const int position : {7, 8, 11, 12, 13}) ToolbarMain.Button(position).Enabled = usable;
  mnuTools.Enabled = !noLog;
  mnuRepairLog.Enabled = corrupt;
  ToolbarMain.Button(9).Enabled = corrupt;
  mnuOpenArchive.Enabled = !corrupt;  // its button stays on
  mnuOpenLog.Enabled = usable && logFile.ArchiveOpen && DefaultLogIsThere();
  mnuPurgeLog.Enabled = usable && !logFile.ArchiveOpen && !findings.LogEmpty;
  // Only the default log is ever cleared.
  mnuClearLog.Enabled = !logFile.ArchiveOpen;
  if (logFile.ArchiveOpen) ToolbarMain.Button(7).Enabled = false;
}

// A folder that cannot be searched by now is no failure of whoever loads the window.
bool frmMain::DefaultLogIsThere() const {
  bool found = false;
  IgnoreErrors([&] { found = defaultLogUsable && FileExists(defaultLogDir + defaultLogFile); });
  return found;
}

void frmMain::EnableRepair() {
  mnuRepairLog.Enabled = true;
  ToolbarMain.Button(9).Enabled = true;
}

void frmMain::TellCorrupt() {
  if (!findings.LogCorrupt) return;
  ShowLogCorrupt();
  EnableRepair();
}

// The layout is the face's; what is left is whether the display can show the graphics.
void frmMain::Form_Resize() {
  if (WindowState == WindowState::Minimized) return;
  settings.GraphicsAvailable = CurrentHost().BackgroundColour() == StandardGrey;
  settings.ShowGraphic = settings.ShowGraphic && settings.GraphicsAvailable;
  imgGraphic.Visible = settings.ShowGraphic;
}

void frmMain::Form_Activate() {
  if (optionsOpen) return;
  SetTrace("frmMain", "Form_Activate");
  ShowRecentFiles();
  ToolbarMain.Visible = settings.ShowToolbars;
  Form_Resize();
  CurrentHost().SetMousePointer(MousePointer::Default);
  const bool sound = TellStateOfLog();
  ShowStatus();
  if (sound) OfferTip();
  CurrentHost().Paint();
  if (!AutoOptimizeDone && mnuOptimize.Enabled && mnuTools.Enabled && settings.AutoOptimize)
    mnuOptimize_Click();
  // The other date keeps the focus while it is unfinished; coming to the front is no reason to complain of
  // it.
  if (inputStarting.Enabled && !(inputEnding.HasFocus() && !EndingChanged)) inputStarting.SetFocus();
}

// The field that dates go to may have kept the focus while both were set anew, the other one last.
void frmMain::ShowActiveDate() {
  const std::string text = InputOf(CurrentDateField).Text;
  if (!IsDate(text)) return;
  Calendar1.Value = WholeDay(ActiveDate());
  CalTitle();
}

// True where there was nothing to complain of.
bool frmMain::TellStateOfLog() {
  const bool invalid = findings.LogInvalid && !logFile.ArchiveOpen;
  const bool missing = !findings.LogExists && !logFile.ArchiveOpen;
  const bool tooBig = findings.LogTooBig && !logFile.ArchiveOpen;
  if (invalid) ShowLogInvalid(findings.TimesForDates);
  if (missing && !std::exchange(session.LogMissingShown, true)) ShowLogMissing();
  if (invalid || missing) StatusIndex = 7;
  if (findings.LogCorrupt) {
    TellCorrupt();
    StatusIndex = 8;
  }
  if (tooBig) {
    ShowLogTooBig();
    session.TipShown = true;  // not in this run any more, even when the log has been made smaller
  }
  return !invalid && !missing && !findings.LogCorrupt && !tooBig;
}

// Once a run, at the first time that the window comes to the front and all is well.
void frmMain::OfferTip() {
  if (session.TipShown || !settings.Tips) return;
  session.TipShown = true;  // before it shows: this window may come to the front meanwhile
  windows.TipForm->ShowModal();
}

bool frmMain::Form_Unload() {
  for (const char* name : {"frmSplash", "frmReport", "frmAbout", "frmHelp", "frmViewLog"})
    if (Form* form = Screen.LoadedForm(name); form && EndIsCertain())
      form->UnloadAtTheEnd();
    else if (form && !form->Unload())
      return false;
  SaveMainWinSettings();
  return true;
}

void frmMain::SaveMainWinSettings() {
  SetTrace("QELMain", "SaveMainWinSettings");
  KeepWindowSize();
  const std::string key = std::string(SettingsKey) + "\\General";
  SetKeyValue(store, SettingsRoot, key, "MainWinWidth", windowSettings.MainWinWidth, REG_DWORD);
  SetKeyValue(store, SettingsRoot, key, "MainWinHeight", windowSettings.MainWinHeight, REG_DWORD);
  SaveRegistry(store);
}

}  // namespace qel
