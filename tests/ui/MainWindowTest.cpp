#include "platform/DateConversion.h"
#include "platform/RegistryFile.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class MainWindowTest : public WindowTest {
 protected:
  std::string PathOf(const std::string& name, const std::string& text) {
    folder.Put(name, text);
    return folder.Path(name);
  }
  std::string Recent() const {
    std::string names;
    for (const auto& file : RecentFiles) names += file.RecentFileName + ";";
    return names;
  }
};

// The commands of the table that are on, by name and tool bar position.
std::string EnabledCommands() {
  frmMain& window = *MainForm;
  std::string names;
  for (const Control* control : std::initializer_list<const Control*>{
           &window.btnExit,       &window.mnuOpenArchive, &window.btnViewLog,    &window.mnuViewLog,
           &window.btnProcess,    &window.mnuQuickDate,   &window.inputStarting, &window.inputEnding,
           &window.LabelStarting, &window.LabelEnding,    &window.UpDown1,       &window.UpDown2,
           &window.UpDown3,       &window.UpDown4,        &window.mnuOptimize,   &window.mnuTools,
           &window.mnuClearLog,   &window.mnuPurgeLog,    &window.mnuRepairLog,  &window.mnuOpenLog})
    if (control->Enabled) names += control->Name() + " ";
  for (const int position : {2, 6, 7, 8, 9, 11, 12, 13})
    if (window.ToolbarMain.Button(position).Enabled) names += std::to_string(position) + " ";
  return names;
}

TEST_F(MainWindowTest, ItsFirstAppearanceTellsTheStateOfTheLogAndEnablesWhatItAllows) {
  const std::string readable =
      "btnExit mnuOpenArchive btnViewLog mnuViewLog btnProcess mnuQuickDate inputStarting inputEnding "
      "LabelStarting LabelEnding UpDown1 UpDown2 UpDown3 UpDown4 mnuOptimize mnuTools ";
  const std::string usableOn = readable + "mnuClearLog mnuPurgeLog 2 6 7 8 11 12 13 ";
  const std::string none = "btnExit mnuOpenArchive mnuClearLog 2 ";
  const std::string ready = "Enter the starting date for the report by clicking on the calendar or typing.";
  const std::string damaged = "Corruption Detected in Modem Log File!";
  const struct {
    std::string log, enabled, message, status;
  } cases[] = {
      {"no date\r\n", none, "INVALID MODEM LOG FILE!", "No Modem Log Found!"},
      {"01-05-1999 \x01\r\n", "btnExit mnuTools mnuClearLog mnuRepairLog 2 9 ", damaged, damaged},
      {usable, usableOn, "", ready},
      {usable + std::string(160000, '\n'), usableOn, "Your Modem Log is Too Big!", ready},
      {"", readable + "mnuClearLog 2 6 7 8 11 12 13 ", "", ready},
  };
  MainForm->Show();
  EXPECT_EQ(EnabledCommands(), none) << "no log";
  for (const auto& c : cases) {
    SCOPED_TRACE(c.log.substr(0, 40));
    MainForm.Reset();
    LogInvalid = LogCorrupt = LogTooBig = false;
    host.messages.clear();
    Show(c.log);
    EXPECT_EQ(EnabledCommands(), c.enabled);
    EXPECT_EQ(host.messages.size(), c.message.empty() ? 0u : 1u);
    EXPECT_TRUE(host.messages.empty() || host.messages[0].Text.starts_with(c.message));
    EXPECT_EQ(Status(), c.status);
  }
  MainForm.Reset();
  Show(usable);
  MainForm->OpenArchive(PathOf("old.qel", usable));
  EXPECT_EQ(EnabledCommands(), readable + "mnuOpenLog 2 6 8 11 12 13 ") << "archive";
}

TEST_F(MainWindowTest, ThePanelShowsTheStatisticsOfTheFile) {
  const auto values = [] {
    frmMain& w = *MainForm;
    std::string all;
    for (const Label* label : {&w.LabelLogName2, &w.LabelLogLength2, &w.LabelLogEntries2, &w.LabelLogFirst2,
                               &w.LabelLogLast2, &w.LabelLogSpan2})
      all += label->Caption() + "|";
    return all;
  };
  MainForm->Show();
  EXPECT_EQ(values().substr(0, 14), "Log Not Found|");
  MainForm.Reset();
  Show(usable);
  EXPECT_EQ(values(), "ModemLog.txt|90 Bytes (0KB)|2|1/5/1999|1/20/1999|15 Days|");
  EXPECT_EQ(MainForm->LabelHeading.Caption(), "Modem Log Details");
  MainForm->OpenArchive(PathOf("empty.qel", ""));
  EXPECT_EQ(values(), "empty.qel|0 Bytes (0KB)|0|N/A|N/A|N/A|");
  EXPECT_EQ(MainForm->LabelHeading.Caption(), "Archive/Log Details");
  EXPECT_EQ(MainForm->LabelHeading2.Caption(), "") << "is the design's";
  host.messages.clear();
  for (const auto& [length, shown] : std::vector<std::pair<int, std::string>>{
           {33554431, "33554431 Bytes (32MB)"}, {33553919, "33553919 Bytes (32767KB)"}}) {
    const std::string large = PathOf("large.qel", usable);
    std::filesystem::resize_file(large, static_cast<std::uintmax_t>(length) - usable.size());
    std::ofstream(large, std::ios::app) << "\n" << usable.substr(1);
    MainForm->OpenArchive(large);
    EXPECT_EQ(MainForm->LabelLogLength2.Caption(), shown);
  }
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(MainForm->LabelHeading.Caption(), "Archive/Log Details");
  MainForm.Reset();
  ArchiveOpen = false;
  Show("01-05-1999 \x01\r\n");
  EXPECT_EQ(values(), "ModemLog.txt|N/A|N/A|N/A|N/A|N/A|");
}

TEST_F(MainWindowTest, WhatWasFoundInOneFileIsNotHeldAgainstTheNext) {
  Show("");
  host.paths = {std::nullopt, PathOf("invalid.qel", "no date\r\n")};
  MainForm->mnuOpenArchive.UserClick();
  EXPECT_FALSE(ArchiveOpen) << "cancelled";
  MainForm->ToolbarMain.UserButtonClick("Open Archive");
  EXPECT_TRUE(ArchiveOpen && LogInvalid);
  MainForm->mnuOpenLog.UserClick();
  EXPECT_TRUE(MainForm->inputStarting.Enabled && !LogInvalid);
  MainForm->OpenArchive(PathOf("old.qel", usable));
  EXPECT_FALSE(MainForm->StatusHold) << "nobody has typed a date outside the log";
  folder.Put("ModemLog.txt", "01-05-1999 \x01\r\n");
  MainForm->mnuOpenLog.UserClick();
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 22), "Corruption Detected in") << "it has gone bad";
  EXPECT_EQ(Status(), "Corruption Detected in Modem Log File!");
  EXPECT_EQ(host.pointer, MousePointer::Default);
  EXPECT_EQ(LastEntryDate, 0);
}

TEST_F(MainWindowTest, AFileThatCannotBeOpenedLeavesEverythingAsItWas) {
  Show(usable);
  RecentFiles[0] = {"M\xC3\xA4rz.qel", folder.Path() + "/", "A"};
  RecentFiles[1] = {"M\xC3\xA4rz.txt", folder.Path() + "/", "R"};
  MainForm.Reset();
  Show(usable);
  for (const std::size_t index : {0u, 1u}) {
    host.messages.clear();
    MainForm->mnuRecent[index].UserClick();
    EXPECT_EQ(host.messages.size(), 2u) << "the report of an error stands twice";
    EXPECT_NE(host.messages.at(0).Text.find("Error code: 53"), std::string::npos);
    EXPECT_NE(host.messages[0].Text.find("/M\xE4rz."), std::string::npos);
    EXPECT_EQ(CurrentLogPath, folder.Path("ModemLog.txt"));
    EXPECT_EQ(Recent(), "M\xC3\xA4rz.qel;M\xC3\xA4rz.txt;;;;");
  }
}

TEST_F(MainWindowTest, RecentFilesStandInOrderOnceEach) {
  Show(usable);
  for (const char* name : {"1.qel", "2.qel", "3.qel", "4.qel", "5.qel"})
    MainForm->OpenArchive(PathOf(name, usable));
  EXPECT_EQ(Recent(), "5.qel;4.qel;3.qel;2.qel;1.qel;");
  MainForm->OpenArchive(folder.Path("3.qel"));
  EXPECT_EQ(Recent(), "3.qel;5.qel;4.qel;2.qel;;") << "the oldest had to go before the double was found";
  MainForm->OpenArchive(PathOf("a name that is long & needs to be shortened.qel", usable));
  EXPECT_EQ(MainForm->mnuRecent[0].Caption(), "a name that is l...be shortened.qel");
  ReadUserParameters();
  EXPECT_EQ(Recent(), "a name that is long & needs to be shortened.qel;3.qel;5.qel;4.qel;2.qel;") << "stored";
  MainForm->mnuRecent[2].UserClick();
  EXPECT_EQ(CurrentLogFile, "5.qel");
  MainForm->mnuClrLst.UserClick();
  EXPECT_EQ(Recent(), ";;;;;");
  EXPECT_FALSE(MainForm->mnuClrLst.Visible || MainForm->mnuRecent[0].Visible);
}

TEST_F(MainWindowTest, TheOptionsAreExportedToAFileThatRestoresThem) {
  Show(usable);
  WriteUserParameters();
  CreatNewKey("SOFTWARE\\Other", SettingsRoot);
  host.paths = {folder.Path("mine.reg")};
  MainForm->mnuExport.UserClick();
  const RegistryTree exported = ParseRegistryFile(folder.Content("mine.reg"));
  EXPECT_TRUE(exported.contains("HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General"));
  EXPECT_FALSE(exported.contains("HKEY_LOCAL_MACHINE\\SOFTWARE\\Other"));
  EXPECT_EQ(host.messages.back().Title, "QEL Options Saved");
  EXPECT_NE(host.messages.back().Text.find("\r\nthe mine.reg file."), std::string::npos);
  host.paths = {folder.Path("no/such/folder.reg")};
  host.messages.clear();
  MainForm->mnuExport.UserClick();
  EXPECT_EQ(host.messages.at(0).Text, "That path doesn't exist.");
}

TEST_F(MainWindowTest, OptionsAreImportedWholeAndUsedAtOnceOrNotAtAll) {
  const std::string head =
      "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n\"a\"=\"1\"\r\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\General]\r\n";
  Show(usable);
  UserStartDate = 7;
  WriteUserParameters();
  folder.Put("bad.reg", head + "\"MaxConnections\"=dword:00000014\r\n\"MaxServices\"=\"twenty\"\r\n");
  host.paths = {std::nullopt, folder.Path("none.reg"), folder.Path("bad.reg")};
  for (const char* said : {"", "No such file", "\"MaxServices\""}) {
    host.messages.clear();
    MainForm->mnuImport.UserClick();
    EXPECT_EQ(host.messages.size(), *said ? 1u : 0u);
    EXPECT_TRUE(host.messages.empty() || host.messages[0].Text.find(said) != std::string::npos) << said;
    EXPECT_EQ(std::tuple(MaxConnections, UserStartDate), std::tuple(200, 7));
  }
  PathOf("new.log", LogOf("02-05-1999", "02-07-1999"));
  folder.Put("good.reg", head + "\"MaxConnections\"=dword:00000014\r\n\"ModemLogFile\"=\"new.log\"\r\n" +
                             "\"ModemLogDir\"=\"" + folder.Path() +
                             "/\"\r\n\"ForceAMPM\"=dword:00000001\r\n");
  host.paths = {folder.Path("good.reg")};
  host.messages.clear();
  MainForm->mnuImport.UserClick();
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 31),
            "4 values were imported from\r\n" + folder.Path().substr(0, 2));
  EXPECT_NE(host.messages[0].Text.find("passed over: 1"), std::string::npos);
  EXPECT_EQ(std::tuple(MaxConnections, UserStartDate), std::tuple(20, 7))
      << "what the file does not name stays";
  EXPECT_EQ(CurrentLogPath, folder.Path("new.log"));
  EXPECT_EQ(MainForm->inputEnding.Text(), "02/07/1999");
}

TEST_F(MainWindowTest, ReadingAgainFindsWhatWasWrittenAndKeepsTheDates) {
  MainForm->Show();
  folder.Put("ModemLog.txt", usable);
  SetCurrentLog(folder.Path() + "/", "ModemLog.txt");
  MainForm->mnuRefresh.UserClick();
  EXPECT_TRUE(LogExists && MainForm->inputStarting.Enabled) << "it has come into being";
  MainForm->inputStarting.Text = "01/07/1999";
  MainForm->inputEnding.Text = "01/09/1999";
  for (const bool archive : {false, true}) {
    const std::string grown = usable + "01-30-1999 10:00:00.00 - a\r\n";
    if (archive) MainForm->OpenArchive(PathOf("old.qel", usable));
    folder.Put(archive ? "old.qel" : "ModemLog.txt", grown);
    MainForm->mnuRefresh.UserClick();
    EXPECT_EQ(LastEntryDate, DateSerial(1999, 1, 30)) << archive;
  }
  MainForm->inputStarting.Text = "01/07/1999";
  MainForm->inputEnding.Text = "01/09/1999";
  MainForm->mnuRefresh.UserClick();
  EXPECT_EQ(MainForm->inputStarting.Text() + MainForm->inputEnding.Text(), "01/07/199901/09/1999");
  EXPECT_EQ(MainForm->Calendar1.Value, DateSerial(1999, 1, 7)) << "the active field's";
  LogCorrupt = true;  // as an undated line leaves it
  MainForm->mnuRefresh.UserClick();
  EXPECT_TRUE(MainForm->mnuOpenLog.Enabled && ArchiveOpen) << "the way back";
}

TEST_F(MainWindowTest, OnlyAValidDefaultLogOfTheOptionsCanBeGoneBackTo) {
  Show(usable);
  PathOf("bad.log", "no date\r\n");
  PathOf("good.log", usable);
  MainForm->OpenArchive(PathOf("old.qel", LogOf("01-02-1999", "01-03-1999")));
  for (const char* name : {"bad.log", "good.log"}) {
    host.actions = {[&] {
      SetupForm->txtLogName.Text = folder.Path(name);
      SetupForm->txtMaxServices.SetFocus();
      SetupForm->btnSave.UserClick();
    }};
    MainForm->mnuSetup.UserClick();
    EXPECT_EQ(MainForm->mnuOpenLog.Enabled, name == std::string("good.log")) << name;
    EXPECT_EQ(CurrentLogFile, "old.qel");
    EXPECT_EQ(LastEntryDate, DateSerial(1999, 1, 3));
    EXPECT_EQ(MainForm->Calendar1.Value, TextToDate(MainForm->inputStarting.Text())) << "the active field's";
  }
}

TEST_F(MainWindowTest, AnEntryWithoutADateEndsTheAnalysisWithAWord) {
  Show("01-05-1999 10:00:00.00 - a\r\n01-06-1999 10:00:00.00 - b\r\nno date\r\n" + usable);
  host.messages.clear();
  MainForm->btnProcess.UserClick();
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 22), "Corruption Detected in");
  EXPECT_EQ(Status(), "Corruption Detected in Modem Log File!");
  EXPECT_TRUE(MainForm->btnProcess.Enabled && !ReportForm.IsLoaded());
  host.messages.clear();
  SetPeriod(DateSerial(1999, 1, 5), DateSerial(1999, 1, 5));  // which ends before that entry
  MainForm->btnProcess.UserClick();
  EXPECT_TRUE(host.messages.empty() && !LogCorrupt && ReportForm.IsLoaded());
  LogCorrupt = true;  // as the test for bytes sets it
  Analyse();
  EXPECT_TRUE(LogCorrupt) << "that is for the repair to take back";
}

TEST_F(MainWindowTest, TheReportIsOfTheLogThatWasAnalysedAndOfAllOfIt) {
  Show(usable);
  MainForm->btnProcess.UserClick();
  MainForm->Activate();
  MainForm->OpenArchive(PathOf("other.qel", usable));
  ReportForm->Activate();
  EXPECT_EQ(ReportForm->Caption(), "QEL Report - (ModemLog.txt)");
  Display& display = *MainForm;
  SummaryBuilt = false;  // as an analysis begins
  display.ShowProgress(true);
  MainForm->Activate();
  ReportForm->Activate();
  EXPECT_FALSE(SummaryBuilt) << "the connections are not all there yet";
  display.ShowProgress(false);
  display.ShowReport();
  EXPECT_TRUE(SummaryBuilt);
  EXPECT_EQ(ReportForm->Caption(), "QEL Report - (other.qel)");
}

TEST_F(MainWindowTest, TheAnimationRunsBothWays) {
  Show(usable);
  int ticks = 0;
  for (const auto& [tick, frame] : {std::pair{19, 19}, {20, 1}, {41, 18}}) {
    while (ticks < tick) ++ticks, MainForm->TimerAnim.Tick();
    EXPECT_EQ(MainForm->PicAnimQel.Frame, frame) << tick;
  }
}

}  // namespace
}  // namespace qel
