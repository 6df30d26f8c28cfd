#include <gtest/gtest.h>

#include "core/EndProgram.h"
#include "startup/QELMain.h"
#include "support/ModemStore.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

// The whole program from its entry, its settings and its default log in a folder of their own.
class StartTest : public WindowTest {
 protected:
  // Tips are closed as they come up.
  void Start() {
    ResetWindows();
    host.actions = {[] { TipForm->cmdOK.UserClick(); }};
    StartProgram();
  }
  std::string Stored(const std::string& key, const std::string& name) const {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + key, name));
  }
};

TEST_F(StartTest, AFirstRunWithoutALogStoresTheDefaultsAndWaitsForAClick) {
  Start();
  EXPECT_TRUE(SplashForm->SplashTimer1.Enabled);
  EXPECT_EQ(SplashForm->SplashLabel1.Caption(), "Click to continue...");
  SplashForm->SplashTimer1.Tick();
  EXPECT_FALSE(SplashForm->SplashLabel1.Visible);
  EXPECT_EQ(Stored("\\General", "ModemLogDir"), folder.Path() + "/");
  EXPECT_EQ(Stored("\\General", "Tips"), "True");
  EXPECT_NE(folder.Content("registry.reg").find("CONNECTION ESTABLISHED"), std::string::npos)
      << "on the disk";
  EXPECT_FALSE(MainForm.IsLoaded());
  KeyPress any;
  SplashForm->KeyDown(any);
  EXPECT_TRUE(MainForm->Visible());
  EXPECT_EQ(LoadedForm("frmSplash"), nullptr);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].Title, "No Modem Log Detected!");
  EXPECT_EQ(Status(), "No Modem Log Found!");
  AboutForm->Show();
  AboutForm->Unload();
  MainForm->Activate();
  EXPECT_EQ(host.messages.size(), 1u) << "once a run";
}

TEST_F(StartTest, AnotherActiveLogIsTakenOnlyWhenTheUserSaysYes) {
  folder.Put("ModemLog.txt", usable);
  Start();
  Store({"\\Modem\\0000", "Internal 33600", folder.Path("Active.txt"), true, "E1"});
  SaveRegistry();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    host.messages.clear();
    host.answers = {answer};
    Start();
    ASSERT_FALSE(host.messages.empty());
    EXPECT_EQ(host.messages[0].Text.substr(0, 24), "Modem Log Path Conflict!");
    EXPECT_EQ(folder.Has("Active.txt"), answer == Answer::Yes);
    EXPECT_EQ(Stored("\\General", "ModemLogFile"), answer == Answer::Yes ? "Active.txt" : "ModemLog.txt");
  }
  EXPECT_EQ(host.messages.at(1).Title, "Modem Log");
}

TEST_F(StartTest, AModemThatIsNotSetUpBringsUpTheWizardUnlessTheCheckIsOff) {
  folder.Put("ModemLog.txt", usable);
  Start();
  Store({"\\Modem\\0000"});
  for (const bool check : {true, false}) {
    StoreGeneralValue("ModemCheck", check, REG_SZ);
    ResetWindows();
    std::string seen;
    const auto look = [&seen] {
      seen += ActiveForm->Name() + " ";
      ActiveForm->Unload();
    };
    host.actions = {look, look};
    StartProgram();
    EXPECT_EQ(seen, check ? "frmPreConfigure frmTip " : "frmTip ");
    EXPECT_TRUE(MainForm->Visible());
  }
}

TEST_F(StartTest, ASettingsFileThatCannotBeReadIsToldAndNeverWritten) {
  folder.Put("ModemLog.txt", usable);
  std::filesystem::create_directory(folder.Path("registry.reg"));
  Start();
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_TRUE(host.messages[0].Text.starts_with("QEL cannot read your settings file\r\n" +
                                                folder.Path("registry.reg") + "\r\n(Is a directory)."));
  EXPECT_TRUE(MainForm->btnProcess.Enabled) << "the built-in settings do for this log";
  EXPECT_EQ(MaxConnections, 200);
  EXPECT_THROW(MainForm->mnuExit.UserClick(), ProgramEnd);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("registry.reg")));

  folder.Empty();
  folder.Put("ModemLog.txt", usable);
  folder.Put("registry.reg", "REGEDIT4\r\ngarbage\"\r\n[");
  host.messages.clear();
  Start();
  ASSERT_EQ(host.messages.size(), 1u);
  const std::string& told = host.messages[0].Text;
  EXPECT_NE(told.find("(line 2: unexpected text)"), std::string::npos) << told;
  EXPECT_NE(told.find(folder.Path("registry.reg.bad") + "\r\n"), std::string::npos) << told;
  EXPECT_EQ(Stored("\\General", "MaxServices"), "10");
}

TEST_F(StartTest, ServicesThatAnotherProgramAddedAreNotLostToTheOptions) {
  folder.Put("ModemLog.txt", usable);
  Start();
  const std::string root = KeyPath(SettingsRoot, SettingsKey);
  RegistryStore other;
  other.Open(folder.Path("registry.reg"), RegistryStore::Access::Shared);
  other.Set(root + "\\General", "UsedServices", {REG_DWORD, DwordBytes(1)});
  other.Set(root + "\\Services", "ServiceName1", {REG_SZ, std::string("Theirs\0", 7)});
  other.Flush();
  host.actions = {[this] {
    EXPECT_EQ(SetupForm->lstServices.RowCount(), 1);
    EXPECT_EQ(AddService("Ours", "2", "").ServiceName, Services[1].ServiceName);
    SetupForm->btnSave.UserClick();
  }};
  MainForm->mnuSetup.UserClick();
  EXPECT_EQ(Stored("\\Services", "ServiceName1") + Stored("\\Services", "ServiceName2"), "TheirsOurs");
}

TEST_F(StartTest, TheEndOfTheProgramAsksOnceAndTakesNoRefusal) {
  folder.Put("ModemLog.txt", usable);
  EditLog = true;
  Start();
  MainForm->Width = 9990;
  MainForm->mnuViewLog.UserClick();
  ViewLogForm->TextViewLog.UserText("changed");
  FindForm->Show();  // goes with the viewer
  folder.Put("ModemLog.txt",
             usable + usable);  // somebody else wrote to it: the second question is about that
  host.messages.clear();
  host.answers = {Answer::Yes, Answer::No};
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(host.messages.size(), 2u);
  EXPECT_TRUE(LoadedForms.empty());
  EXPECT_EQ(Stored("\\General", "MainWinWidth"), "9990");
  EXPECT_EQ(Log(), usable + usable);
}

TEST_F(StartTest, TheEndOfTheProgramStoresNoOptionsThatWereNotSaved) {
  folder.Put("ModemLog.txt", usable);
  Start();
  ReportForm->Show();
  SaveReportSettings = true;
  host.actions = {[] {
    SetupForm->txtMaxConnections.UserText("300");
    SetupForm->TabStrip1.SetFocus();
    EXPECT_EQ(MaxConnections, 300);
    EndProgram();
  }};
  EXPECT_THROW(MainForm->mnuSetup.UserClick(), ProgramEnd);
  EXPECT_EQ(Stored("\\General", "MaxConnections"), "200");
}

TEST_F(StartTest, WhatAnEndedRewriteLeftIsSetRightAndTold) {
  const struct {
    std::vector<std::string> left;
    std::string log, kept, told;  // the files' names, as what they hold; a part of the message
  } cases[] = {
      {{"ModemLog.old", "ModemLog.pge"}, "", "", "Qelmark Cannot Locate"},  // no proof of anything
      {{"ModemLog.txt.qel-old"}, "ModemLog.txt.qel-old", "", "has been put back"},
      {{"ModemLog.txt.qel-old", "ModemLog.txt.qel-new"}, "ModemLog.txt.qel-old", "", "has been put back"},
      {{"ModemLog.txt.qel-new", "ModemLog.txt"}, "ModemLog.txt", "", ""},
      {{"ModemLog.txt.qel-old", "ModemLog.txt"}, "ModemLog.txt", "ModemLog.txt.qel-old", "ModemLog.txt.kept"},
  };
  for (const auto& c : cases) {
    folder.Empty();
    for (const std::string& name : c.left) folder.Put(name, usable + "01-20-1999 " + name + "\r\n");
    host.messages.clear();
    Start();
    if (SplashForm.IsLoaded()) SplashForm->Picture1.UserClick();
    const auto content = [](const std::string& of) { return of.empty() ? "" : "01-20-1999 " + of + "\r\n"; };
    EXPECT_TRUE(Log().ends_with(content(c.log)) && Log().empty() == c.log.empty()) << c.told;
    EXPECT_TRUE(folder.Content("ModemLog.txt.kept").ends_with(content(c.kept))) << c.told;
    EXPECT_FALSE(folder.Has("ModemLog.txt.qel-old") || folder.Has("ModemLog.txt.qel-new"));
    ASSERT_EQ(host.messages.size(), c.told.empty() ? 0u : 1u);
    EXPECT_NE((c.told.empty() ? "" : host.messages[0].Text).find(c.told), std::string::npos);
  }
}

TEST_F(StartTest, FromAFreshHomeToASavedReportAndBack) {
  folder.Put("ModemLog.txt", ReadWholeFile(QEL_SOURCE_DIR "/share/samples/ModemLog.txt"));
  Start();
  frmMain& window = *MainForm;
  window.inputStarting.UserText("11/01/1998");
  window.UpDown1.UserUp();
  window.inputEnding.UserClick();
  window.Calendar1.UserPick(DateSerial(1998, 11, 30));
  EXPECT_EQ(window.btnProcess.Caption(), "QELMARK - Report for 29 days");
  window.btnProcess.UserClick();

  frmReport& report = *ReportForm;
  ASSERT_TRUE(report.Visible());
  EXPECT_EQ(report.Caption(), "QEL Report - (ModemLog.txt)");
  EXPECT_EQ(report.ListView1.Columns().at(1).Text, "Service");
  report.Toolbar1.UserButtonClick("Detail");
  const int connections = report.ListView1.RowCount();
  report.mnuFormatStd.UserClick();
  EXPECT_NE(report.ReportTextBox.Text().find("QELMARK - Details Report"), std::string::npos);
  report.mnuSummary.UserClick();
  EXPECT_NE(report.ReportTextBox.Text().find("QELMARK - Summary Report"), std::string::npos);
  report.mnuListView.UserClick();
  EXPECT_LT(report.ListView1.RowCount(), connections);
  EXPECT_EQ(report.ListView1.Columns().at(6).Text, "* Data Read");
  report.ListView1.UserColumnClick(7);
  EXPECT_EQ(report.ListView1.Columns().at(6).Text, "* Blocks");
  host.paths = {folder.Path("November.txt"), folder.Path("November.txt")};
  report.mnuSaveAS.UserClick();
  EXPECT_EQ(host.dialogs.back().FileName, "Summary 02Nov98 - 30Nov98");
  const std::string saved = folder.Content("November.txt");
  report.Width = 8880;
  EXPECT_TRUE(report.Unload());
  window.mnuOpenReport.UserClick();
  EXPECT_EQ(ReportForm->ReportTextBox.Text(), saved);
  window.Width = 9990;
  EXPECT_THROW(window.mnuExit.UserClick(), ProgramEnd);
  EXPECT_TRUE(LoadedForms.empty());

  Start();
  EXPECT_EQ(MainForm->Width(), 9990);
  EXPECT_EQ(MainForm->mnuRecent[0].Caption(), "November.txt");
  MainForm->mnuRecent[0].UserClick();
  EXPECT_EQ(ReportForm->Caption(), "QEL Report - (November.txt)");
  EXPECT_EQ(SummaryViewSettings.WinWidth, 8880);
}

}  // namespace
}  // namespace qel
