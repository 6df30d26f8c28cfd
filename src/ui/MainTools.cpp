// The main window's side of the viewer, of the tools that rewrite the log, and of the modem wizard.
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "core/Version.h"
#include "maintenance/Optimize.h"
#include "ui/frmCompare.h"
#include "ui/frmFileRepair.h"
#include "ui/frmMain.h"
#include "ui/frmPreConfigure.h"
#include "ui/frmPurge.h"
#include "ui/frmViewLog.h"

namespace qel {

void frmMain::btnViewLog_Click() {
  SetTrace("frmMain", "btnViewLog_Click");
  if (windows.ViewerOpen)
    windows.ViewLogForm->Unload();
  else
    windows.ViewLogForm->Show();
}

void frmMain::NameLogCommands() {
  const auto kind = [](bool archive) { return std::string(archive ? "Archive" : "Modem Log"); };
  const bool shown = windows.ViewerOpen && windows.ViewLogForm->ShowsLog();
  const bool usable = !NoUsableLog() && !findings.LogCorrupt;
  mnuViewLog.Caption =
      shown ? "&Close " + kind(windows.ViewLogForm->ShowsArchive()) : "&View " + kind(logFile.ArchiveOpen);
  btnViewLog.Caption = mnuViewLog.Caption;
  btnViewLog.Enabled = mnuViewLog.Enabled = ToolbarMain.Button(6).Enabled =
      windows.ViewerOpen ? shown : usable;
  mnuOptimize.Caption = "&Optimize " + kind(logFile.ArchiveOpen);
}

void frmMain::mnuClearLog_Click() {
  SetTrace("frmMain", "mnuClearLog_Click");
  KeepWindowSize();
  const Message question{
      "You are about to delete your modem log. Before clearing this log, \n"
      "you should save it as an archive if you haven't done so already.\n"
      "\n"
      "A new blank modem log file will be created for you but reports\n"
      "will not be available until after your next dial-up networking session\n"
      "\n"
      "Are you sure you want to delete your modem log?",
      "Delete Modem Log",
      Icon::None,
      Buttons::YesNo,
      0,
      2};
  std::optional<FileStamp> asked;  // what the user agrees to lose
  IgnoreErrors([&] { asked = StampOf(logFile.CurrentLogPath); });
  if (MsgBox(question) != Answer::Yes || !ClearsUnsavedLog()) return;
  if (Attempt([&] { ClearLog(logFile.CurrentLogPath, asked); })) {
    findings.LogCorrupt = false;
    lastArchive.reset();
    MsgBox({"Current modem log has been deleted.\nNew blank modem log has been created!", ProgramTitle});
  }
  ReadLogAgain();
}

// The told question advises to save the log first. Who tried and could not, or saved what has grown since, is
// asked again.
bool frmMain::ClearsUnsavedLog() {
  const std::string doubt = lastArchive ? DoubtAboutClearing(logFile.CurrentLogPath, *lastArchive) : "";
  return doubt.empty() || MsgBox({doubt + "\n\nDo you want to delete it all the same?", "Delete Modem Log",
                                  Icon::Exclamation, Buttons::YesNo, 0, 2}) == Answer::Yes;
}

void frmMain::mnuPurgeLog_Click() {
  SetTrace("frmMain", "mnuPurgeLog_Click");
  frmPurge& purge = *windows.PurgeForm;
  purge.ShowModal();
  if (purge.LogChanged) ReadLogAgain();
}

void frmMain::mnuOptimize_Click() {
  SetTrace("frmMain", "mnuOptimize_Click");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  KeepWindowSize();
  Optimize();
  ReadLogAgain();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void frmMain::Optimize() {
  SetTrace("QELOptimize", "Optimize");
  AutoOptimizeDone = true;
  const Message question{"About to optimize Current Modem Log File!\n\nAre You Sure?", "OPTIMIZE MODEM LOG",
                         Icon::Question, Buttons::YesNo};
  if (MsgBox(question) != Answer::Yes) return;
  DisableControls();
  DoOptimize(session.InHand(), settings, logFile.ArchiveOpen);
  EnableControls(true);
}

void frmMain::mnuRepairLog_Click() {
  SetTrace("frmMain", "mnuRepairLog_Click");
  windows.FileRepairForm->ShowModal();
  ReadLogAgain();
}

// Of the report of the period, which stands behind it.
void frmMain::mnuCompare_Click() {
  if (!btnProcess.Enabled) {
    MsgBox({"Please choose the days of the report first.", "Compare Tariffs", Icon::Information});
    return;
  }
  btnProcess_Click();
  SetTrace("frmMain", "mnuCompare_Click");
  if (!findings.LogCorrupt && !analysis.ServicesExceeded) windows.CompareForm->ShowComparison();
}

void frmMain::mnuModemWizard_Click() {
  SetTrace("frmMain", "mnuModemWizard_Click");
  if (places.OSName.find("NT") != std::string::npos)
    MsgBox({"Sorry .... This option is not yet available for Windows NT.", "Modem Configuration Wizard",
            Icon::Information});
  else if (session.modems.PreConfigure(true))
    windows.PreConfigureForm->ShowModal();
}

// What could touch the log while it is rewritten. What is on by the state of the log is Form_Load's to say.
void frmMain::EnableControls(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{&mnuFile, &mnuTools, &mnuQuickDate, &ToolbarMain,
                                                          &btnProcess, &btnViewLog, &btnExit})
    control->Enabled = enabled;
  for (Control* control : std::initializer_list<Control*>{&LabelStarting, &inputStarting, &UpDown1,
                                                          &LabelEnding, &inputEnding, &UpDown2})
    control->Visible = enabled;
  EnableRecentMenu(enabled);
}

void frmMain::EnableRecentMenu(bool state) {
  for (MenuItem& item : mnuRecent) item.Enabled = state;
}

void frmMain::KeepWindowSize() {
  windowSettings.MainWinWidth = Width();
  windowSettings.MainWinHeight = Height();
}

// Whether the log is corrupt is the caller's to say.
void frmMain::ReadLogAgain() {
  session.Examine(findings.LogCorrupt ? LogHealth::Corrupt : LogHealth::Sound);
  Form_Load();
}

}  // namespace qel
