#include "support/ModemStore.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class WizardWindowTest : public WindowTest {
 protected:
  WizardWindowTest() {
    DefaultLogDir = folder.Path() + "/";
    DefaultLogFile = "ModemLog.txt";
    Store({"\\Modem\\0000", "Internal 33600", folder.Path("ModemLog.txt"), true, "E1"});
    SetModemText("\\Modem\\0000", "AttachedTo", "COM2");
    Store({"\\Modem\\0001", "External 56K"});
  }
  // Opens the wizard on a modem and goes on to the comparison.
  frmPreConfigure& Compare(int modem) {
    PreConfigureForm.Reset();
    PreConfigure(true);
    PreConfigureForm->Show();
    PreConfigureForm->btnNext.UserClick();
    PreConfigureForm->lstModems.UserChoose(modem);
    PreConfigureForm->btnNext.UserClick();
    return *PreConfigureForm;
  }
  static std::string Steps() {
    std::string usable;
    for (const Frame& frame : PreConfigureForm->fraCheck)
      if (frame.Usable()) usable += std::to_string(frame.Index());
    return usable;
  }
};

TEST_F(WizardWindowTest, ItLeadsToAModemThatIsSetUpAndBackAgainChangingNothing) {
  const RegistryTree before = Registry.Tree();
  frmPreConfigure& window = Compare(1);
  EXPECT_EQ(window.lstModems.Items(), (std::vector<std::string>{"Internal 33600 on COM2", "External 56K"}));
  EXPECT_EQ(Steps(), "2");
  window.btnCancel.UserClick();
  EXPECT_EQ(Steps(), "1");
  EXPECT_EQ(window.btnNext.Caption(), "&Finish");
  EXPECT_TRUE(window.Timer1.Enabled);
  window.btnCancel.UserClick();
  EXPECT_EQ(Steps() + window.btnCancel.Caption(), "0&Cancel");
  window.btnCancel.UserClick();
  EXPECT_FALSE(PreConfigureForm.IsLoaded());
  Compare(1).Unload();
  EXPECT_EQ(Registry.Tree(), before);
  EXPECT_EQ(folder.Entries(), 0);
}

TEST_F(WizardWindowTest, OfAModemThatIsSetUpThereIsNothingToDo) {
  frmPreConfigure& window = Compare(0);
  EXPECT_EQ(window.lblCurrentEcho.Caption() + window.lblRecLogging.Caption(), "ONON");
  EXPECT_EQ(window.btnNext.Caption(), "&OK");
  EXPECT_EQ(PreferredModem, 1);
  window.btnNext.UserClick();
  EXPECT_FALSE(PreConfigureForm.IsLoaded());
  EXPECT_FALSE(folder.Has("ModemLog.txt"));
}

TEST_F(WizardWindowTest, WhatIsToChangeBlinksWhileTheModemDoesNotLog) {
  const struct {
    const char* init;
    bool logging, loggingStays, echoStays;
  } cases[] = {{"", false, false, false}, {"E1", false, false, true}, {"", true, true, true}};
  for (const auto& c : cases) {
    Registry.DeleteKey(KeyPath(RegistryRoot::LocalMachine, ModemClass + "\\Modem\\0001"));
    Store({"\\Modem\\0001", "External 56K", "", c.logging, c.init});
    frmPreConfigure& window = Compare(1);
    EXPECT_EQ(window.ImgCurrentLogging.Frame, c.logging ? 1 : 2);
    window.Timer1.Tick();
    EXPECT_EQ(window.lblRecLogging.Visible, c.loggingStays) << c.init;
    EXPECT_EQ(window.lblRecEcho.Visible, c.echoStays) << c.init;
    EXPECT_EQ(window.btnNext.Caption(), "&Finish") << "the path is missing all the same";
    window.btnCancel.UserClick();
    EXPECT_EQ(window.Timer1.Enabled, !c.logging);
    window.lstModems.UserChoose(0);
    window.btnNext.UserClick();
    EXPECT_FALSE(window.Timer1.Enabled) << "this one logs";
  }
}

TEST_F(WizardWindowTest, FinishingMakesTheChangesAndTellsOfANewLog) {
  for (const char* opening : {"A new empty modem log file", "QEL will check your settings"}) {
    Store({"\\Modem\\0001", "External 56K"});
    frmPreConfigure& window = Compare(1);
    window.btnNext.UserClick();
    EXPECT_EQ(Steps(), "3");
    EXPECT_NE(window.RichTextBox3.Caption().find(opening), std::string::npos) << opening;
    EXPECT_FALSE(window.btnCancel.Visible || window.Timer1.Enabled);
    EXPECT_NE(ModemValues("\\Modem\\0001").find("Logging=1;"), std::string::npos);
    window.Check1.UserClick();
    window.btnNext.UserClick();
    EXPECT_FALSE(PreConfigureForm.IsLoaded());
  }
  EXPECT_TRUE(ModemCheck) << "off and on again";
  EXPECT_EQ(TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + "\\General", "ModemCheck")), "True");
}

TEST_F(WizardWindowTest, TheCommandOpensItExceptOnNT) {
  Show(usable);
  for (const char* system : {"NT 40", "WIN 98"}) {
    bool opened = false;
    host.actions = {[&opened] {
      opened = PreConfigureForm->Visible();
      PreConfigureForm->btnCancel.UserClick();
    }};
    OSName = system;
    MainForm->mnuModemWizard.UserClick();
    EXPECT_EQ(opened, OSName == "WIN 98");
  }
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0].Text, "Sorry .... This option is not yet available for Windows NT.");
}

}  // namespace
}  // namespace qel
