#include "core/EndProgram.h"
#include "core/Version.h"
#include "support/FailingDisk.h"
#include "support/WindowTest.h"

namespace qel {

class LogToolsTest : public WindowTest {
 protected:
  void Show(const std::string& log) {
    WindowTest::Show(log);
    host.messages.clear();
    host.transcript.clear();
  }
};

TEST_F(LogToolsTest, ThePurgeWindowHoldsItsDatesInsideTheLog) {
  Show(usable);
  frmPurge& window = *PurgeForm;
  window.Show();
  EXPECT_TRUE(window.MaskEdBox1.HasFocus() && !window.btnOK.Enabled) << "no date yet";
  window.MaskEdBox1.UserText("01/30/1999");
  EXPECT_EQ(window.MaskEdBox1.Text(), "01/20/1999");
  EXPECT_TRUE(host.Showed("beep") && window.btnOK.Enabled);

  window.optPurge[1].UserClick();
  EXPECT_TRUE(window.MaskEdBox2[0].Enabled && !window.MaskEdBox1.Enabled && !window.MaskEdBox3.Enabled);
  window.MaskEdBox2[0].UserText("01/15/1999");
  window.MaskEdBox2[1].UserText("01/10/1999");
  EXPECT_FALSE(window.btnOK.Enabled) << "crossed";
  window.MaskEdBox2[1].UserText("01/1_/1999");
  EXPECT_FALSE(window.btnOK.Enabled);
  window.MaskEdBox2[1].UserText("01/16/1999");
  EXPECT_TRUE(window.btnOK.Enabled);

  window.optPurge[2].UserClick();
  window.MaskEdBox3.UserText("12/01/1998");
  EXPECT_EQ(window.MaskEdBox3.Text(), "01/05/1999");
  EXPECT_TRUE(window.btnOK.Enabled);
  window.btnCancel.UserClick();
  EXPECT_FALSE(PurgeForm.IsLoaded());
}

TEST_F(LogToolsTest, APurgeRunsWhenTheUserAgreesAndIsSeenAtOnce) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    MainForm.Reset();
    Show(usable);
    host.answers = {answer};
    host.actions = {[] {
      PurgeForm->optPurge[2].UserClick();
      PurgeForm->MaskEdBox3.UserText("01/20/1999");
      PurgeForm->btnOK.UserClick();
    }};
    MainForm->mnuPurgeLog.UserClick();
    EXPECT_EQ(
        host.messages.at(0).Text,
        "About to purge all entries in Modem\nLog File between 1/20/1999 and 1/20/1999.\n\nAre You Sure?");
    const bool purged = answer == Answer::Yes;
    EXPECT_EQ(Log(), purged ? usable.substr(0, usable.size() / 2) : usable);
    EXPECT_EQ(MainForm->LabelLogLast2.Caption(), purged ? "1/5/1999" : "1/20/1999");
  }
}

TEST_F(LogToolsTest, OptimizingIsOfferedOnceAtTheStartAndByCommand) {
  AutoOptimize = true;
  host.answers = {Answer::No};
  Show(usable);
  EXPECT_EQ(Log(), usable);
  ActiveForm = nullptr;
  MainForm->Activate();
  EXPECT_TRUE(host.messages.empty()) << "not again";
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_EQ(Log(), "");
  EXPECT_EQ(folder.Content("ModemLog.old"), usable);
  EXPECT_EQ(host.messages.at(0).Title, "OPTIMIZE MODEM LOG");
  EXPECT_TRUE(MainForm->mnuFile.Enabled && MainForm->inputStarting.Visible && MainForm->btnExit.Enabled);
  EXPECT_EQ(MainForm->LabelLogEntries2.Caption(), "0");
}

TEST_F(LogToolsTest, ClearingLeavesAUsableLogOfOneEntry) {
  const std::string corrupt = "01-05-1999 \x01\r\n";
  std::filesystem::create_symlink("real.txt", folder.Path("ModemLog.txt"));
  Show(corrupt);
  host.answers = {Answer::No, Answer::Yes};
  MainForm->mnuClearLog.UserClick();
  EXPECT_EQ(Log(), corrupt);
  EXPECT_EQ(host.messages.at(0).DefaultButton, 2);
  MainForm->mnuClearLog.UserClick();
  EXPECT_EQ(Log(), "01-15-1999 12:00:00.00 - New modem log file created by QEL (Qelmark) v1.0\r\n");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("ModemLog.txt")) && folder.Has("real.txt"));
  EXPECT_FALSE(LogCorrupt);
  EXPECT_TRUE(MainForm->btnProcess.Enabled && MainForm->btnViewLog.Enabled);
  EXPECT_EQ(MainForm->inputEnding.Text(), "01/15/1999");
}

TEST_F(LogToolsTest, ALogThatCannotBeClearedStays) {
  Show(usable);
  FailingDisk full;
  for (int n = 2; n == 2 || full.Failed(); ++n) {  // behind the question
    host.messages.clear();
    host.answers = {Answer::Yes};
    {
      const DiskInPlace inPlace(full);
      full.FailNth(n, ENOSPC);
      MainForm->mnuClearLog.UserClick();
    }
    EXPECT_TRUE(Log() == usable || Log().ends_with("v1.0\r\n")) << n;
    folder.Put("ModemLog.txt", usable);
  }
  std::ofstream driver(folder.Path("ModemLog.txt"), std::ios::app);
  host.messages.clear();
  host.answers = {Answer::Yes};
  EXPECT_THROW(MainForm->mnuClearLog.UserClick(), ProgramEnd);
  EXPECT_EQ(host.messages.at(1).Title, "QEL - Lock Error");
  EXPECT_EQ(Log(), usable);
}

TEST_F(LogToolsTest, AFailureGivesItsReasonBesideTheToldMessage) {
  std::string many;
  for (int i = 0; i < 32768; ++i) many += "01-05-1999 a\r\n";
  Show(many);
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_EQ(host.messages.at(1).Title, "Optimization Failed");
  EXPECT_EQ(MainForm->StatusBarMain.ToolTipText(), "the log has more than 32,767 lines");
  folder.Put("ModemLog.txt", usable);
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_EQ(MainForm->StatusBarMain.ToolTipText(), "") << "that was another run";
  EXPECT_TRUE(LogTooBig && LogEmpty) << "an empty log keeps what was found before";
}

TEST_F(LogToolsTest, ClearingAsksAgainWhereTheLogIsInNoArchive) {
  const struct {
    const char* archive;  // where the user saves it
    const char* added;    // to the log meanwhile
    std::string asks;
  } cases[] = {
      {"log.qel", "", ""},
      {"log.qel", "01-21-1999 a\r\n", "The log has changed since the text that you saved"},
      {"no/such/folder.qel", "", "The log was not saved as an archive:\n"},
  };
  for (const auto& c : cases) {
    ResetWindows();
    Show(usable);
    MainForm->btnViewLog.UserClick();
    host.paths = {folder.Path(c.archive)};
    ViewLogForm->mnuSaveArchive.UserClick();
    const bool failed = c.asks.ends_with(":\n");
    EXPECT_EQ(host.Showed("beep"), failed);
    EXPECT_EQ(ViewLogForm->StatusBar1.Panels().back().starts_with("Archive NOT saved: "), failed);
    ViewLogForm->Unload();
    if (*c.added) folder.Put("ModemLog.txt", usable + c.added);
    host.answers = {Answer::Yes, Answer::No};
    host.messages.clear();
    MainForm->mnuClearLog.UserClick();
    EXPECT_TRUE(host.messages.at(1).Text.starts_with(c.asks.empty() ? "Current modem log has" : c.asks));
    EXPECT_EQ(Log() == usable + c.added, !c.asks.empty());
  }
}

TEST_F(LogToolsTest, ARepairThatFailsEndsTheProgramAndLeavesTheLog) {
  Show("01-05-1999 \x01\r\n");
  AppPath = folder.Path("no such folder");
  EXPECT_THROW(MainForm->mnuRepairLog.UserClick(), ProgramEnd);
  EXPECT_EQ(host.messages.at(0).Title, "Repair Failure!");
  EXPECT_EQ(Log(), "01-05-1999 \x01\r\n");
  EXPECT_FALSE(MainForm.IsLoaded());
}

}  // namespace qel
