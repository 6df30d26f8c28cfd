// What the windows do where no journey leads: files of many megabytes, and a text file that no command shows
// as yet.
#include "support/WindowTest.h"

namespace qel {
namespace {

class WindowLimitsTest : public WindowTest {
 protected:
  // Makes an archive of the usual log, stretched to `length` bytes, the current file.
  void OpenStretched(std::uintmax_t length) {
    folder.Put("large.qel", usable);
    const std::string large = folder.Path("large.qel");
    std::filesystem::resize_file(large, length - usable.size());
    std::ofstream(large, std::ios::app) << "\n" << usable.substr(1);
    MainForm->OpenArchive(large);
  }
};

TEST_F(WindowLimitsTest, TheLengthOfALargeArchiveIsShownInKilobytesForAsLongAsTheyCount) {
  Show(usable);
  OpenStretched(33554431);
  EXPECT_EQ(MainForm->LabelLogLength2.Caption(), "33554431 Bytes (32MB)");
  OpenStretched(33553919);
  EXPECT_EQ(MainForm->LabelLogLength2.Caption(), "33553919 Bytes (32767KB)");
}

TEST_F(WindowLimitsTest, ALargeFileIsRefusedByTheViewerInClearWords) {
  Show(usable);
  OpenStretched((32 << 20) + 1);
  MainForm->btnViewLog.UserClick();
  EXPECT_EQ(host.messages.at(0).Text,
            "This file is too large to be viewed: 32 MB.\r\nThe largest that can be is 32 MB.");
  ViewLogForm->TextViewLog.UserType("x");
  EXPECT_EQ(ViewLogForm->TextViewLog.Text(), "") << "what was not read is not written";
}

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
  for (const MenuItem* item :
       {&ViewLogForm->mnuSave, &ViewLogForm->mnuSaveArchive, &ViewLogForm->mnuCut, &ViewLogForm->mnuPaste,
        &ViewLogForm->mnuSaveSettings, &ViewLogForm->mnuRestore})
    EXPECT_FALSE(item->Enabled) << item->Name();
  text.UserType("x");
  EXPECT_EQ(text.Text(), usable);
  EXPECT_TRUE(ViewLogForm->Unload() && MainForm->btnViewLog.Enabled);
}

}  // namespace
}  // namespace qel
