#include "settings/Registry_Functions.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class TipTest : public WindowTest {
 protected:
  std::string Stored(const std::string& name) const {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + "\\General", name));
  }
  static std::string Shown() { return TipForm->lblTipText.Caption(); }
};

TEST_F(TipTest, TheTipsGoRoundFromRunToRun) {
  folder.Put("QelTips.txt", "one\r\n\r\ncaf\xE9\n");
  const struct {
    int last;
    std::string opensOn, next, previous;
  } cases[] = {{0, "one", "", "caf\xE9"}, {1, "", "caf\xE9", "one"},  {2, "caf\xE9", "one", ""},
               {3, "one", "", "caf\xE9"}, {99, "one", "", "caf\xE9"}, {-7, "one", "", "caf\xE9"}};
  for (const auto& c : cases) {
    StoreGeneralValue("LastTip", Int32(c.last), REG_DWORD);
    TipForm->Show();
    EXPECT_EQ(Shown(), c.opensOn) << c.last;
    TipForm->cmdNextTip.UserClick();
    EXPECT_EQ(Shown(), c.next) << c.last;
    TipForm->btnPrevious.UserClick();
    TipForm->btnPrevious.UserClick();
    EXPECT_EQ(Shown(), c.previous) << c.last;
    TipForm->cmdOK.UserClick();
  }
  EXPECT_EQ(Stored("LastTip"), "3");
}

TEST_F(TipTest, WithoutAFileTheWindowTellsHowToMakeOne) {
  TipForm->Show();
  const std::string told = Shown();
  EXPECT_EQ(told.substr(0, 50), "That the QelTips.txt file was not found? \r\n\r\nCreat");
  TipForm->btnPrevious.UserClick();
  EXPECT_EQ(Shown(), told);
  TipForm->Unload();
  folder.Put("QelTips.txt", "");
  TipForm->Show();
  EXPECT_EQ(Shown(), "") << "an empty file is one";
}

TEST_F(TipTest, TheBoxKeepsTipsFromComingUp) {
  TipForm->Show();
  EXPECT_TRUE(TipForm->chkLoadTipsAtStartup.Value);
  TipForm->chkLoadTipsAtStartup.UserClick();
  EXPECT_EQ(Stored("Tips"), "False");
  TipForm->btnReadme.UserClick();
  EXPECT_EQ(host.transcript.back(), "document: " + folder.Path("readme.htm"));
  TipForm->Unload();
  TipShown = false;
  Show(usable);
  EXPECT_FALSE(TipForm.IsLoaded());
  MainForm->mnuTip.UserClick();
  EXPECT_TRUE(TipForm.IsLoaded()) << "it can be asked for";
}

TEST_F(TipTest, ItComesUpOnceARunWhenThereIsNothingToComplainOf) {
  const struct {
    std::string log;
    bool comes, comesLater;
  } cases[] = {{usable, true, false},
               {"no date\r\n", false, true},
               {"01-05-1999 \x01\r\n", false, true},
               {usable + std::string(160000, '\n'), false, false}};
  const auto comesUp = [] {
    const bool shown = TipForm.IsLoaded();
    TipForm->Unload();
    return shown;
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.log.substr(0, 40));
    MainForm.Reset();
    TipShown = false;
    Show(c.log);
    EXPECT_EQ(comesUp(), c.comes);
    DefaultLog(usable);
    LogInvalid = LogTooBig = false;
    AboutForm->Show();
    AboutForm->Unload();
    MainForm->Activate();
    EXPECT_EQ(comesUp(), c.comesLater);
  }
}

}  // namespace
}  // namespace qel
