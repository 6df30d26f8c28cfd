// What the windows do where no journey leads: files of many megabytes, and a text file that no command shows
// as yet.
#include "support/WindowTest.h"

namespace qel {
namespace {

using WindowLimitsTest = WindowTest;

TEST_F(WindowLimitsTest, ALargeFileIsRefusedByTheViewerInClearWords) {
  Show(usable);
  folder.Put("large.qel", usable);
  std::filesystem::resize_file(folder.Path("large.qel"), (32 << 20) + 1 - usable.size());
  std::ofstream(folder.Path("large.qel"), std::ios::app) << "\n" << usable.substr(1);
  windows->MainForm->OpenArchive(folder.Path("large.qel"));
  windows->MainForm->btnViewLog.UserClick();
  EXPECT_EQ(host.messages.at(0).Text,
            "This file is too large to be viewed: 32 MB.\r\nThe largest that can be is 32 MB.");
  windows->ViewLogForm->TextViewLog.UserType("x");
  EXPECT_EQ(windows->ViewLogForm->TextViewLog.Text(), "") << "what was not read is not written";
}

TEST_F(WindowLimitsTest, ATextFileLeavesTheLogsSettingsAndCommandsAlone) {
  Show(usable);
  windows->ViewLogForm->ViewTextFile = folder.Path("ModemLog.txt");
  windows->ViewLogForm->ViewTextFileName = "ModemLog.txt";
  RichTextBox& text = windows->ViewLogForm->TextViewLog;
  text.Font = Font{"Sans", 9};
  windows->ViewLogForm->Show();
  EXPECT_EQ(windows->ViewLogForm->Caption(), "QEL - View Text File (ModemLog.txt)");
  EXPECT_EQ(text.Text(), usable);
  EXPECT_EQ(windows->ViewLogForm->StatusBar1.Panels().at(0), "courier new 9") << "in the size of the design";
  EXPECT_FALSE(windows->MainForm->btnViewLog.Enabled || windows->MainForm->mnuViewLog.Enabled);
  for (const MenuItem* item : {&windows->ViewLogForm->mnuSave, &windows->ViewLogForm->mnuSaveArchive,
                               &windows->ViewLogForm->mnuCut, &windows->ViewLogForm->mnuPaste,
                               &windows->ViewLogForm->mnuSaveSettings, &windows->ViewLogForm->mnuRestore})
    EXPECT_FALSE(item->Enabled) << item->Name();
  text.UserType("x");
  EXPECT_EQ(text.Text(), usable);
  EXPECT_TRUE(windows->ViewLogForm->Unload() && windows->MainForm->btnViewLog.Enabled);
}

}  // namespace
}  // namespace qel
