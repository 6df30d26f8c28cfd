#include "core/EndProgram.h"
#include "startup/QELMain.h"
#include "support/WindowTest.h"

namespace qel {

// The whole program from its entry, its settings and its default log in a folder of their own.
class StartTest : public WindowTest {
 protected:
  void Start() {
    ResetWindows();
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
  EXPECT_EQ(host.messages.at(0).Title, "No Modem Log Detected!");
  EXPECT_EQ(Status(), "No Modem Log Found!");
  AboutForm->Show();
  AboutForm->Unload();
  MainForm->Activate();
  EXPECT_EQ(host.messages.size(), 1u) << "once a run";
}

TEST_F(StartTest, AnotherActiveLogIsTakenOnlyWhenTheUserSaysYes) {
  folder.Put("ModemLog.txt", usable);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    host.messages.clear();
    Start();
    host.answers = {answer};
    ActiveLogFile = "Active.txt";  // as the modem check tells
    Main();
    EXPECT_EQ(host.messages.at(0).Text.substr(0, 24), "Modem Log Path Conflict!");
    EXPECT_EQ(folder.Has("Active.txt"), answer == Answer::Yes);
    EXPECT_EQ(Stored("\\General", "ModemLogFile"), answer == Answer::Yes ? "Active.txt" : "ModemLog.txt");
    ActiveLogFile.clear();
  }
  EXPECT_EQ(host.messages.at(1).Title, "Modem Log");
}

TEST_F(StartTest, AnInterruptedRewriteIsUndoneAndTold) {
  folder.Put("ModemLog.old", usable);
  Start();
  EXPECT_FALSE(folder.Has("ModemLog.txt")) << "somebody took the log away, no tool";
  folder.Put("ModemLog.pge", "half");
  Start();
  EXPECT_EQ(folder.Content("ModemLog.txt"), usable);
  EXPECT_EQ(host.messages.at(0).Title, "Modem Log");
  EXPECT_TRUE(MainForm->btnProcess.Enabled);
}

}  // namespace qel
