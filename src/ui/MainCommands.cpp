// The main window's menus and tool bar, the files that it opens, and the list of recent ones.
#include <algorithm>
#include <map>

#include "core/EndProgram.h"
#include "core/ErrorHandler.h"
#include "core/GeneralFunctions.h"
#include "core/ProgramState.h"
#include "maintenance/LogSwap.h"
#include "modemlog/LogStatistics.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Host.h"
#include "settings/Settings.h"
#include "settings/SettingsFile.h"
#include "ui/frmAbout.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"
#include "ui/frmReport.h"
#include "ui/frmSetup.h"
#include "ui/frmViewLog.h"

namespace qel {

namespace {

constexpr std::size_t LongestRecentName = 35;  // characters

constexpr char ArchiveFilter[] =
    "Qelmark Modem Log Archive (*.qel)|*.qel|Modem Log File (*.log, *.txt)|*.log;*.txt| All Files (*.*)|*.*";
constexpr char ReportFilter[] = "Qelmark Report (*.txt)|*.txt";
constexpr char RegistryFilter[] = "Registry File (*.reg)|*.reg";

// Both ends of a name, which tell names apart best; "&" would mark an access key in a menu.
std::string RecentCaption(const std::string& fileName) {
  std::string name = PathText(fileName);
  if (name.size() > LongestRecentName) name = name.substr(0, 16) + "..." + name.substr(name.size() - 16);
  std::string caption;
  for (const char c : name) caption += c == '&' ? "&&" : std::string(1, c);
  return caption;
}

void TellExported(const std::string& path) {
  const std::string lines[] = {
      "QEL stores all of it's options/settings in the Windows Registry. ",
      "These paramters have been exported to:",
      PathText(path),
      "Keep this file in a safe place as it can be used to restore all of ",
      "your settings and options including service definitions. It may ",
      "also be used to transfer all your QEL settings to another PC.",
      "To restore, make sure QEL is closed and simply double click",
      "the " + PathText(FileNamePart(path)) + " file.",
  };
  std::string text;
  for (const auto& line : lines) text += (text.empty() ? "" : NewLine) + line;
  MsgBox({text, "QEL Options Saved", Icon::Information});
}

// The user's way out: changes in the viewer that the user wants kept, and that cannot be saved, prevent it.
void LeaveProgram() {
  if (!ViewerOpen || ViewLogForm->Unload()) EndProgram();
}

// Pipes and devices may never come to an end.
void RefuseStream(const std::string& path) {
  if (IsStream(path)) Raise(BadFileName);
}

// Whether the file can be read as a log, tried before anything of the current one is given up.
bool CanBeOpened(const std::string& path) {
  return Attempt([&path] {
    RefuseStream(path);
    LineReader(path).Close();
  });
}

}  // namespace

void frmMain::WireCommands() {
  mnuOpenLog.Click = [this] { mnuOpenLog_Click(); };
  mnuOpenArchive.Click = [this] { mnuOpenArchive_Click(); };
  mnuOpenReport.Click = [this] { mnuOpenReport_Click(); };
  mnuSetup.Click = [this] { mnuSetup_Click(); };
  mnuExport.Click = [this] { mnuExport_Click(); };
  for (std::size_t i = 0; i < mnuRecent.size(); ++i) mnuRecent[i].Click = [this, i] { mnuRecent_Click(i); };
  mnuClrLst.Click = [this] { mnuClrLst_Click(); };
  mnuExit.Click = [] { LeaveProgram(); };
  mnuTopics.Click = ShowHelpContents;
  mnuReadme.Click = [this] { mnuReadme_Click(); };
  mnsSearchHelp.Click = ShowHelpSearch;
  mnuHowToHelp.Click = ShowHelpOnHelp;
  mnuAbout.Click = [this] { mnuAbout_Click(); };
  btnExit.Click = [] { LeaveProgram(); };
  btnExit.GotFocus = [this] { SetStatus(3); };
  btnProcess.GotFocus = [this] { SetStatus(4); };
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
  if (const auto path = CurrentHost().AskOpenFile({ArchiveFilter, AppPath, ""})) OpenArchive(*path);
}

void frmMain::OpenArchive(const std::string& path) {
  SetTrace("frmMain", "OpenArchive");
  StepTrace = PathText(path);
  Attempt([&path] { MendInterruptedSwap(path); });
  if (!CanBeOpened(path)) return;
  if (!ArchiveOpen) {
    defaultLogFile = CurrentLogFile;
    defaultLogDir = CurrentLogDir;
    defaultLogUsable = LogExists && !LogInvalid && !LogCorrupt;
  }
  SetCurrentLog(path);
  Examine(LogHealth::Sound, true);
  ArchiveOpen = true;
  AddRecentFile(CurrentLogFile, CurrentLogDir, "A");
  ShowRecentFiles();
  Form_Load();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void frmMain::mnuOpenLog_Click() {
  SetTrace("frmMain", "mnuOpenLog_Click");
  ArchiveOpen = false;
  ReadDefaultLog(defaultLogDir, defaultLogFile);
  Form_Load();
  CurrentHost().SetMousePointer(MousePointer::Default);
  if (!LogCorrupt) return;
  TellCorrupt();
  SetStatus(8);
}

// Makes a default log the current file and looks into it as the start does.
void frmMain::ReadDefaultLog(const std::string& folder, const std::string& file) {
  SetCurrentLog(folder, file);
  Examine(LogHealth::Unknown);
}

// The window comes back to the front once, when it shows what the options have changed, and not before.
void frmMain::mnuSetup_Click() {
  SetTrace("frmMain", "mnuSetup_Click");
  OptionsChanged = false;
  optionsOpen = true;
  SetupForm->ShowModal();
  CurrentHost().Yield();
  if (LogPathChanged && ArchiveOpen) {
    defaultLogFile = ModemLogFile;
    defaultLogDir = ModemLogDir;
    defaultLogUsable = true;
  } else if (LogPathChanged) {
    ReadDefaultLog(ModemLogDir, ModemLogFile);
  }
  Form_Load();
  optionsOpen = false;
  ActiveForm = nullptr;
  Activate();
  if (!OptionsChanged) return;
  MsgBox({"Some changed options will NOT take\neffect until the program is re-started.", "QEL Options"});
  OptionsChanged = false;
}

void frmMain::mnuOpenReport_Click() {
  if (const auto path = CurrentHost().AskOpenFile({ReportFilter, AppPath, ""})) DoOpenReport(*path);
}

void frmMain::DoOpenReport(const std::string& path) {
  SetTrace("frmMain", "DoOpenReport");
  StepTrace = PathText(path);
  const bool opened = Attempt([&path] {
    RefuseStream(path);
    ReportForm->OpenReport(path);
  });
  if (!opened) return;
  AddRecentFile(FileNamePart(path), FolderPart(path), "R");
  ShowRecentFiles();
}

void frmMain::mnuExport_Click() {
  SetTrace("frmMain", "ExportOptions");
  const auto path = CurrentHost().AskSaveFile({RegistryFilter, AppPath, "QEL.reg"});
  if (path && Attempt([&path] { ReplaceFile(*path, ExportedOptions()); })) TellExported(*path);
}

void frmMain::mnuReadme_Click() {
  SetTrace("frmMain", "mnuReadme_Click");
  Attempt([] { CurrentHost().OpenDocument(AppPath + PathSeparator + "readme.htm"); });
}

void frmMain::mnuAbout_Click() { AboutForm->ShowModal(); }

void frmMain::mnuRecent_Click(std::size_t index) {
  const RecentFile file = RecentFiles[index];
  const std::string path = file.RecentFilePath + file.RecentFileName;
  if (file.RecentFileType == "A") OpenArchive(path);
  if (file.RecentFileType == "R") DoOpenReport(path);
}

void frmMain::mnuClrLst_Click() {
  RecentFiles = {};
  SaveRecentFiles();
  ShowRecentFiles();
}

void frmMain::AddRecentFile(const std::string& name, const std::string& path, const std::string& type) {
  std::move_backward(RecentFiles.begin(), RecentFiles.end() - 1, RecentFiles.end());
  RecentFiles.front() = {name, path, type};
  const auto again = std::remove_if(RecentFiles.begin() + 1, RecentFiles.end(),
                                    [&name](const RecentFile& file) { return file.RecentFileName == name; });
  std::fill(again, RecentFiles.end(), RecentFile());
  SaveRecentFiles();
}

void frmMain::SaveRecentFiles() {
  IgnoreErrors([] {
    const std::string key = std::string(SettingsKey) + "\\RecentFiles";
    for (std::size_t i = 0; i < RecentFiles.size(); ++i) {
      const RecentFile& file = RecentFiles[i];
      const std::string number = std::to_string(i + 1);
      CreatNewKey(key, SettingsRoot);
      SetKeyValue(SettingsRoot, key, "RecentFileName" + number, file.RecentFileName, REG_SZ);
      SetKeyValue(SettingsRoot, key, "RecentFilePath" + number, file.RecentFilePath, REG_SZ);
      SetKeyValue(SettingsRoot, key, "RecentFileType" + number, file.RecentFileType, REG_SZ);
    }
  });
  SaveRegistry();
}

void frmMain::ShowRecentFiles() {
  bool any = false;
  for (std::size_t i = 0; i < mnuRecent.size(); ++i) {
    const RecentFile& file = RecentFiles[i];
    mnuRecent[i].Caption = RecentCaption(file.RecentFileName);
    mnuRecent[i].ToolTipText = PathText(file.RecentFilePath + file.RecentFileName);
    mnuRecent[i].Visible = !file.RecentFileName.empty();
    any = any || mnuRecent[i].Visible;
  }
  mnuClrLst.Visible = any;  // a face draws no two separators in a row
}

}  // namespace qel
