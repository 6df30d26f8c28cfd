#include "support/WindowTest.h"
#include "ui/frmFind.h"
#include "ui/frmViewLog.h"

namespace qel {

class ViewerTest : public WindowTest {
 protected:
  void View(const std::string& log) {
    Show(log);
    MainForm->btnViewLog.UserClick();
    host.messages.clear();
  }
  RichTextBox& Text() { return ViewLogForm->TextViewLog; }
};

TEST_F(ViewerTest, ChangesAreSavedWhenTheUserWantsThemToBe) {
  const struct {
    std::vector<Answer> answers;
    std::string added, saved;  // to the file, by the modem's driver meanwhile and by the viewer
    bool closes;
  } cases[] = {
      {{Answer::No}, "", usable, true},
      {{Answer::Yes}, "", "new " + usable + "\r\n", true},
      {{Answer::Yes, Answer::No}, "added\r\n", usable + "added\r\n", false},
      {{Answer::Yes, Answer::Yes}, "added\r\n", "new " + usable + "\r\n", true},
  };
  for (const auto& c : cases) {
    ResetWindows();
    View(usable);
    EXPECT_FALSE(ViewLogForm->mnuSave.Enabled);
    Text().UserType("new ");
    EXPECT_TRUE(ViewLogForm->Toolbar1.Button("Save").Enabled);
    if (!c.added.empty()) folder.Put("ModemLog.txt", usable + c.added);
    host.answers = {c.answers.begin(), c.answers.end()};
    EXPECT_EQ(ViewLogForm->Unload(), c.closes);
    EXPECT_EQ(Log(), c.saved);
  }
}

TEST_F(ViewerTest, ChangesThatCannotBeSavedKeepTheWindow) {
  View(usable);
  Text().UserType("new ");
  std::filesystem::remove_all(folder.Path());
  host.answers = {Answer::Yes, Answer::Ignore, Answer::Yes, Answer::Ignore};
  EXPECT_FALSE(ViewLogForm->Unload());
  MainForm->btnExit.UserClick();
  EXPECT_EQ(Text().Text(), "new " + usable) << "the program is still there";
  std::filesystem::create_directory(folder.Path());
}

TEST_F(ViewerTest, ALogInOtherHandsKeepsTheChangesInTheWindow) {
  View(usable);
  Text().UserType("new ");
  host.answers = {Answer::Yes};
  {
    std::ofstream driver(folder.Path("ModemLog.txt"), std::ios::app);
    EXPECT_FALSE(ViewLogForm->Unload());
  }
  EXPECT_EQ(Log(), usable);
  EXPECT_TRUE(host.messages.at(1).Text.starts_with("Your changes have not been saved:"));
  host.answers = {Answer::Yes};
  EXPECT_TRUE(ViewLogForm->Unload());
  EXPECT_EQ(Log(), "new " + usable + "\r\n");
  EXPECT_EQ(folder.Entries(), 1) << "nothing is left beside it";
}

TEST_F(ViewerTest, WithoutEditingTheTextIsLocked) {
  EditLog = false;
  View(usable);
  Text().UserType("x");
  EXPECT_EQ(Text().Text(), usable);
  EXPECT_FALSE(ViewLogForm->mnuCut.Enabled || ViewLogForm->mnuPaste.Enabled || ViewLogForm->mnuSave.Enabled);
  EXPECT_EQ(ViewLogForm->StatusBar1.Panels().at(1), "Locked");
}

TEST_F(ViewerTest, ItFollowsTheOptionWhenItComesBackToTheFront) {
  View(usable);
  for (const bool allowed : {false, true}) {
    EditLog = allowed;
    MainForm->Activate();
    ViewLogForm->Activate();
    EXPECT_EQ(Text().Locked, !allowed);
    EXPECT_EQ(ViewLogForm->StatusBar1.Panels().at(1), allowed ? "Edit Allowed" : "Locked");
  }
}

TEST_F(ViewerTest, TextGoesOverTheClipboard) {
  View(usable);
  Text().Select(0, 3);
  ViewLogForm->mnuCut.UserClick();
  EXPECT_EQ(host.clipboard, "01-");
  ViewLogForm->mnuBottom.UserClick();
  ViewLogForm->mnuPaste.UserClick();
  EXPECT_EQ(Text().Text(), usable.substr(3) + "01-");
  Text().Select(0, 3);
  host.clipboard = "";
  ViewLogForm->mnuPaste.UserClick();
  EXPECT_EQ(Text().SelText(), usable.substr(3, 3)) << "there is nothing to paste";
}

TEST_F(ViewerTest, FontAndSizeAreKeptOnRequest) {
  View(usable);
  host.fonts = {Font{"Courier", 12, true, false}};
  ViewLogForm->mnuFont.UserClick();
  EXPECT_EQ(ViewLogForm->StatusBar1.Panels().at(0), "Courier 12 Bold");
  ViewLogForm->Width = 9990;
  EXPECT_TRUE(ViewLogForm->Unload());
  EXPECT_EQ(ViewLogSettings.FontName, "MS Sans Serif") << "not asked for";
  ViewLogForm->Show();
  ViewLogForm->mnuSaveSettings.UserClick();
  Text().Font = Font{"Courier", 12, true, false};
  ViewLogForm->Width = 9990;
  EXPECT_TRUE(ViewLogForm->Unload());
  ReadUserParameters();
  ViewLogForm->Show();
  EXPECT_EQ(Text().Font(), (Font{"Courier", 12, true, false}));
  EXPECT_EQ(ViewLogForm->Width(), 9990);
  ViewLogForm->mnuRestore.UserClick();
  EXPECT_EQ(Text().Font(), (Font{"MS Sans Serif", 8, false, false}));
}

TEST_F(ViewerTest, AWindowTooLargeForTheSettingsCloses) {
  View(usable);
  ViewLogSettings.SaveSettings = true;
  ViewLogForm->Width = 3840 * 15;
  EXPECT_TRUE(ViewLogForm->Unload());
  EXPECT_EQ(ViewLogSettings.WinWidth, 32767);
}

TEST_F(ViewerTest, TheLogStaysShownWhenAnArchiveIsOpened) {
  View(usable);
  EXPECT_EQ(ViewLogForm->Caption(), "QEL - View Modem Log");
  folder.Put("old.qel", LogOf("02-05-1998", "02-06-1998"));
  MainForm->OpenArchive(folder.Path("old.qel"));
  EXPECT_EQ(MainForm->btnViewLog.Caption(), "&Close Modem Log");
  Text().UserType("new ");
  host.paths = {std::nullopt, folder.Path("no/such/folder")};
  for (int i = 0; i < 2; ++i) ViewLogForm->mnuSaveArchive.UserClick();
  EXPECT_EQ(host.dialogs.back().FileName, "05Jan99 - 20Jan99");
  EXPECT_TRUE(host.messages.empty());
  host.answers = {Answer::Yes};
  MainForm->btnViewLog.UserClick();
  EXPECT_EQ(Log(), "new " + usable + "\r\n");
  EXPECT_EQ(MainForm->mnuViewLog.Caption(), "&View Archive");
}

TEST_F(ViewerTest, ALogThatBecomesUnusableIsNotOfferedAgain) {
  View(usable);
  folder.Put("ModemLog.txt", "no date, Reads : Total: 10\r\n");
  host.answers = {Answer::Yes};
  MainForm->mnuOptimize.UserClick();
  EXPECT_TRUE(MainForm->btnViewLog.Enabled) << "it closes";
  MainForm->btnViewLog.UserClick();
  EXPECT_FALSE(MainForm->btnViewLog.Enabled || MainForm->ToolbarMain.Button(6).Enabled);
}

TEST_F(ViewerTest, ATextFileLeavesTheLogsSettingsAndCommandsAlone) {
  Show(usable);
  ViewTextFile = folder.Path("ModemLog.txt");
  ViewTextFileName = "ModemLog.txt";
  Text().Font = Font{"Sans", 9};
  ViewLogForm->Show();
  EXPECT_EQ(ViewLogForm->Caption(), "QEL - View Text File (ModemLog.txt)");
  EXPECT_EQ(Text().Text(), usable);
  EXPECT_EQ(ViewLogForm->StatusBar1.Panels().at(0), "courier new 9") << "in the size of the design";
  EXPECT_FALSE(MainForm->btnViewLog.Enabled || MainForm->mnuViewLog.Enabled);
  EXPECT_FALSE(ViewLogForm->mnuRestore.Enabled || ViewLogForm->mnuSaveSettings.Enabled || !Text().Locked);
  EXPECT_TRUE(ViewLogForm->Unload() && MainForm->btnViewLog.Enabled);
}

TEST_F(ViewerTest, ALargeFileIsRefusedInClearWords) {
  Show(usable);
  folder.Put("large.qel", usable);
  std::filesystem::resize_file(folder.Path("large.qel"), 40 << 20);
  SetCurrentLog(folder.Path("large.qel"));
  ViewLogForm->Show();
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 44), "This file is too large to be viewed: 40 MB.\r");
  Text().UserType("x");
  EXPECT_EQ(Text().Text(), "") << "what was not read is not written";
}

TEST_F(ViewerTest, AViewerClosedAsTheSearchBeginsStaysClosed) {
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

TEST_F(ViewerTest, TheSearchGoesOnFromHitToHitBothWays) {
  ResetFind();
  View("01-05-1999 Two\r\ntwo three\r\n01-06-1999 TWO");
  ViewLogForm->mnuSearchFindNext.UserClick();
  ASSERT_TRUE(FindForm.IsLoaded()) << "there is nothing to search for yet";
  EXPECT_FALSE(FindForm->cmdFind.Enabled);
  FindForm->Text1.UserText("two");
  FindForm->cmdFind.UserClick();
  EXPECT_FALSE(FindForm.IsLoaded());
  std::string hits;
  for (int i = 0; i < 4; ++i) {
    hits += std::to_string(Text().SelStart()) + " ";
    ViewLogForm->mnuSearchFindNext.UserClick();
  }
  EXPECT_EQ(hits, "11 16 38 38 ");
  EXPECT_EQ(host.messages.back().Text, "Cannot find \"two\"");
  ViewLogForm->mnuSearchFind.UserClick();
  EXPECT_EQ(FindForm->Text1.SelText(), "TWO") << "what is selected";
  FindForm->optDirection[0].UserClick();
  FindForm->cmdFind.UserClick();
  EXPECT_EQ(Text().SelStart(), 16);
  ViewLogForm->mnuSearchFind.UserClick();
  FindForm->chkCase.UserClick();
  FindForm->Text1.UserText("TWO");
  FindForm->cmdFind.UserClick();
  EXPECT_EQ(Text().SelStart(), 38) << "downward anew, and by case";
}

}  // namespace qel
