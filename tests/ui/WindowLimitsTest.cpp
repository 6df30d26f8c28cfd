// What the windows do where no journey leads: files of many megabytes, each operation of the disk failing in
// turn, and what happens in the middle of other work.
#include "core/EndProgram.h"
#include "support/FailingDisk.h"
#include "support/WindowTest.h"
#include "ui/frmFind.h"
#include "ui/frmViewLog.h"

namespace qel {
namespace {

class WindowLimitsTest : public WindowTest {
 protected:
  void View(const std::string& log) {
    Show(log);
    MainForm->btnViewLog.UserClick();
    host.messages.clear();
  }
  std::string Stored(const std::string& key, const std::string& name) const {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + key, name));
  }
};

TEST_F(WindowLimitsTest, TheLengthOfALargeArchiveIsShownInKilobytesForAsLongAsTheyCount) {
  Show(usable);
  for (const auto& [length, shown] : std::vector<std::pair<int, std::string>>{
           {33554431, "33554431 Bytes (32MB)"}, {33553919, "33553919 Bytes (32767KB)"}}) {
    folder.Put("large.qel", usable);
    const std::string large = folder.Path("large.qel");
    std::filesystem::resize_file(large, static_cast<std::uintmax_t>(length) - usable.size());
    std::ofstream(large, std::ios::app) << "\n" << usable.substr(1);
    MainForm->OpenArchive(large);
    EXPECT_EQ(MainForm->LabelLogLength2.Caption(), shown);
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(WindowLimitsTest, ALargeFileIsRefusedByTheViewerInClearWords) {
  Show(usable);
  folder.Put("large.qel", usable);
  std::filesystem::resize_file(folder.Path("large.qel"), 40 << 20);
  SetCurrentLog(folder.Path("large.qel"));
  ViewLogForm->Show();
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 44), "This file is too large to be viewed: 40 MB.\r");
  ViewLogForm->TextViewLog.UserType("x");
  EXPECT_EQ(ViewLogForm->TextViewLog.Text(), "") << "what was not read is not written";
}

TEST_F(WindowLimitsTest, AToolThatFailsGivesItsReasonUntilTheNextRun) {
  std::string many;
  for (int i = 0; i < 32768; ++i) many += "01-05-1999 a\r\n";
  Show(many);
  host.messages.clear();
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_EQ(host.messages.at(1).Title, "Optimization Failed");
  EXPECT_EQ(MainForm->StatusBarMain.ToolTipText(), "the log has more than 32,767 lines");
  folder.Put("ModemLog.txt", usable);
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_EQ(MainForm->StatusBarMain.ToolTipText(), "");
  EXPECT_TRUE(LogTooBig && LogEmpty) << "an empty log keeps what was found before";
}

TEST_F(WindowLimitsTest, ALogThatCannotBeClearedStays) {
  std::filesystem::create_symlink("real.txt", folder.Path("ModemLog.txt"));
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
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("ModemLog.txt"))) << n;
    folder.Put("ModemLog.txt", usable);
  }
}

TEST_F(WindowLimitsTest, AReportThatComesToTheFrontDuringAnAnalysisWaitsForAllOfIt) {
  Show(usable);
  MainForm->btnProcess.UserClick();
  MainForm->Activate();
  folder.Put("other.qel", usable);
  MainForm->OpenArchive(folder.Path("other.qel"));
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

TEST_F(WindowLimitsTest, AViewerClosedAsTheSearchBeginsStaysClosed) {
  class : public ScriptedHost {
    void Paint() override { ViewLogForm->Unload(); }
  } impatient;
  View(usable);
  FindText = "Modem";
  SetHost(impatient);
  DoFind();
  EXPECT_FALSE(ViewLogForm.IsLoaded());
  EXPECT_EQ(impatient.pointer, MousePointer::Default);
  SetHost(host);
}

// No command shows another text than a log's as yet.
TEST_F(WindowLimitsTest, ATextFileLeavesTheLogsSettingsAndCommandsAlone) {
  Show(usable);
  ViewTextFile = folder.Path("ModemLog.txt");
  ViewTextFileName = "ModemLog.txt";
  RichTextBox& text = ViewLogForm->TextViewLog;
  text.Font = Font{"Sans", 9};
  ViewLogForm->Show();
  EXPECT_EQ(ViewLogForm->Caption(), "QEL - View Text File (ModemLog.txt)");
  EXPECT_EQ(text.Text(), usable);
  EXPECT_EQ(ViewLogForm->StatusBar1.Panels().at(0), "courier new 9") << "in the size of the design";
  EXPECT_FALSE(MainForm->btnViewLog.Enabled || MainForm->mnuViewLog.Enabled);
  EXPECT_FALSE(ViewLogForm->mnuRestore.Enabled || ViewLogForm->mnuSaveSettings.Enabled || !text.Locked);
  EXPECT_TRUE(ViewLogForm->Unload() && MainForm->btnViewLog.Enabled);
}

TEST_F(WindowLimitsTest, TheEndAfterAnErrorAsksOnceAndTakesNoRefusal) {
  EditLog = true;
  View(usable);
  ViewLogForm->TextViewLog.UserText("changed");
  FindForm->Show();                             // goes with the viewer
  folder.Put("ModemLog.txt", usable + usable);  // by another program: the second question is about that
  host.answers = {Answer::Yes, Answer::No};
  EXPECT_THROW(EndProgram(), ProgramEnd);
  EXPECT_EQ(host.messages.size(), 2u);
  EXPECT_TRUE(LoadedForms.empty());
  EXPECT_EQ(Log(), usable + usable);
}

TEST_F(WindowLimitsTest, TheEndAfterAnErrorStoresNoOptionsThatWereNotSaved) {
  Show(usable);
  WriteUserParameters();
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

}  // namespace
}  // namespace qel
