// The main window's menus and tool bar, and the files that it opens.
#include <map>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "maintenance/LogSwap.h"
#include "modemlog/LogExamination.h"
#include "modemlog/LogMessages.h"
#include "platform/Files.h"
#include "platform/TextToDate.h"
#include "ui/HelpNumbers.h"
#include "ui/frmAbout.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"
#include "ui/frmReport.h"
#include "ui/frmTip.h"
#include "ui/frmViewLog.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char ArchiveFilter[] =
    "Qelmark Modem Log Archive (*.qel)|*.qel|Modem Log File (*.log, *.txt)|*.log;*.txt| All Files (*.*)|*.*";
constexpr char ReportFilter[] = "Qelmark Report (*.txt)|*.txt";

// The user's way out: changes in the viewer that the user wants kept, and that cannot be saved, prevent it.
void LeaveProgram(Windows& windows) {
  if (!windows.ViewerOpen || windows.ViewLogForm->Unload()) CurrentHost().EndProgram();
}

// Pipes and devices may never come to an end.
void RefuseStream(const std::string& path) {
  if (IsStream(path)) Raise(BadFileName);
}

// Whether the file can be read as a log with days, tried before anything of the current one is given up.
bool CanBeOpened(const std::string& path) {
  bool timesForDates = false;
  const bool opened = Attempt([&] {
    RefuseStream(path);
    timesForDates = TimeInPlaceOfDate(path).has_value();
  });
  if (timesForDates) ShowLogInvalid(timesForDates);
  return opened && !timesForDates;
}

}  // namespace

void frmMain::WireCommands() {
  for (std::size_t i = 0; i < mnuRecent.size(); ++i) mnuRecent[i].Click = [this, i] { mnuRecent_Click(i); };
  mnuExit.Click = [this] { LeaveProgram(windows); };
  mnuTopics.Click = [this] { windows.HelpForm->ShowHelpContents(); };
  mnsSearchHelp.Click = [this] { windows.HelpForm->ShowHelpSearch(); };
  mnuHowToHelp.Click = [this] { windows.HelpForm->ShowHelp(HelpUsingHelp); };
  mnuTip.Click = [this] {
    SetTrace("frmMain", "mnuTip_Click");
    windows.TipForm->ShowModal();
  };
  btnExit.Click = [this] { LeaveProgram(windows); };
  btnExit.GotFocus = [this] { SetStatus(3); };
  btnProcess.GotFocus = [this] { SetStatus(4); };
  btnViewLog.GotFocus = [this] { SetStatus(5); };
  ToolbarMain.ButtonClick = [this](const std::string& key) { ToolbarMain_ButtonClick(key); };
}

void frmMain::ToolbarMain_ButtonClick(const std::string& key) {
  const std::map<std::string, const MenuItem*> items = {
      {"Setup", &mnuSetup},
      {"View Modem Log", &mnuViewLog},
      {"Clear Modem Log", &mnuClearLog},
      {"Optimize Modem Log", &mnuOptimize},
      {"Repair Modem Log", &mnuRepairLog},
      {"Today", &mnuToday},
      {"First Entry", &mnuLogStart},
      {"Last Entry", &mnuLogEnd},
      {"Help", &mnuTopics},
      {"Search Help", &mnsSearchHelp},
      {"About QEL", &mnuAbout},
      {"Open Archive", &mnuOpenArchive},  // a corrupt log disables the item and leaves the button
      {"Exit", &mnuExit},
  };
  items.at(key)->Click();
}

void frmMain::mnuOpenArchive_Click() {
  if (const auto path = CurrentHost().AskOpenFile({ArchiveFilter, places.AppPath, ""})) OpenArchive(*path);
}

void frmMain::OpenArchive(const std::string& path) {
  SetTrace("frmMain", "OpenArchive");
  TraceStep(PathText(path));
  Attempt([&path] { MendInterruptedSwap(path); });
  if (!CanBeOpened(path)) return;
  if (!logFile.ArchiveOpen) {
    defaultLogFile = logFile.CurrentLogFile;
    defaultLogDir = logFile.CurrentLogDir;
    defaultLogUsable = findings.LogExists && !findings.LogInvalid && !findings.LogCorrupt;
  }
  session.SetCurrentLog(path);
  session.Examine(LogHealth::Sound);
  logFile.ArchiveOpen = true;
  AddRecentFile(logFile.CurrentLogFile, logFile.CurrentLogDir, "A");
  ShowRecentFiles();
  Form_Load();
  ShowActiveDate();
}

// The file may have grown, or have come into being, since it was looked into. The dates stay where they can.
void frmMain::mnuRefresh_Click() {
  SetTrace("frmMain", "mnuRefresh_Click");
  TraceStep(PathText(logFile.CurrentLogPath));
  const std::string dates[] = {inputStarting.Text, inputEnding.Text};
  if (!logFile.ArchiveOpen)
    ReadDefaultLog(logFile.CurrentLogDir, logFile.CurrentLogFile);
  else if (CanBeOpened(logFile.CurrentLogPath))
    session.Examine(LogHealth::Sound);
  Form_Load();
  if (inputStarting.Enabled && IsDate(dates[0]) && IsDate(dates[1])) {
    inputStarting.Text = dates[0];
    inputEnding.Text = dates[1];
  }
  CurrentHost().SetMousePointer(MousePointer::Default);
  TellStateOfLog();
  ShowStatus();
  ShowActiveDate();
}

void frmMain::mnuOpenLog_Click() {
  SetTrace("frmMain", "mnuOpenLog_Click");
  logFile.ArchiveOpen = false;
  ReadDefaultLog(defaultLogDir, defaultLogFile);
  Form_Load();
  ShowActiveDate();
  CurrentHost().SetMousePointer(MousePointer::Default);
  if (!findings.LogCorrupt) return;
  TellCorrupt();
  SetStatus(8);
}

// Makes a default log the current file and looks into it as the start does.
void frmMain::ReadDefaultLog(const std::string& folder, const std::string& file) {
  session.SetCurrentLog(folder, file);
  session.Examine(LogHealth::Unknown);
}

void frmMain::mnuOpenReport_Click() {
  if (const auto path = CurrentHost().AskOpenFile({ReportFilter, places.AppPath, ""})) DoOpenReport(*path);
}

void frmMain::DoOpenReport(const std::string& path) {
  SetTrace("frmMain", "DoOpenReport");
  TraceStep(PathText(path));
  const bool opened = Attempt([&] {
    RefuseStream(path);
    windows.ReportForm->OpenReport(path);
  });
  if (!opened) return;
  AddRecentFile(FileNamePart(path), FolderPart(path), "R");
  ShowRecentFiles();
}

void frmMain::mnuReadme_Click() {
  SetTrace("frmMain", "mnuReadme_Click");
  Attempt([this] { CurrentHost().OpenDocument(places.AppPath + PathSeparator + "readme.htm"); });
}

void frmMain::mnuAbout_Click() {
  SetTrace("frmMain", "mnuAbout_Click");
  windows.AboutForm->ShowModal();
}

}  // namespace qel
