#include <QPlainTextEdit>
#include <QRadioButton>

#include "ProgramTest.h"

namespace qel {

class LogJourney : public ProgramTest {
 protected:
  std::string Days() const {
    return MainForm->LabelLogFirst2.Caption() + " - " + MainForm->LabelLogLast2.Caption();
  }
  // Chooses an option of the purge window and types its dates.
  void Purge(int option, std::vector<std::pair<const char*, const char*>> dates) {
    act = [=] {
      Click(Get<QRadioButton>("frmPurge", ("optPurge_" + std::to_string(option)).c_str()), {8, 8});
      for (const auto& [field, date] : dates) Type(field, date, "frmPurge");
      Keep("frmPurge", "option " + std::to_string(option));
      Click(Get<QPushButton>("frmPurge", "btnOK"));
      return true;
    };
    Choose("frmMain", "mnuPurgeLog");
  }
};

TEST_F(LogJourney, ADamagedLogIsRepairedPurgedOptimizedArchivedAndCleared) {
  PutSample("ModemLog.txt");
  const std::string sample = Log();
  folder.Put("ModemLog.txt",
             "\x7F\r\n" + sample.substr(0, 5000) + "\x01\x80\tno date\r\n" + sample.substr(5000));
  Start();
  act = [] {
    auto& ok = Get<QPushButton>("frmFileRepair", "btnOK");
    if (!ok.isEnabled()) return false;
    Keep("frmFileRepair", "repaired");
    Click(ok);
    return true;
  };
  ClickTool("frmMain", "ToolbarMain", "Repair Modem Log");
  EXPECT_EQ(Days(), "10/5/1998 - 1/5/1999");

  Purge(1, {{"MaskEdBox1", "10101998"}});
  Purge(3, {{"MaskEdBox3", "01011999"}});
  Purge(2, {{"MaskEdBox2_0", "10121998"}, {"MaskEdBox2_1", "12301998"}});
  EXPECT_EQ(Days(), "10/11/1998 - 12/31/1998");

  ClickTool("frmMain", "ToolbarMain", "Optimize Modem Log");
  const std::string optimized = Log();
  ClickTool("frmMain", "ToolbarMain", "Optimize Modem Log");
  EXPECT_EQ(Log(), optimized);
  EXPECT_EQ(folder.Content("ModemLog.old"), optimized);

  Click(Get<QPushButton>("frmMain", "btnViewLog"));
  auto& text = Get<QPlainTextEdit>("frmViewLog", "TextViewLog");
  QTest::keyClicks(&text, "x");
  Keep("frmViewLog", "changed");
  paths = {folder.Path("kept.qel")};
  Choose("frmViewLog", "mnuSaveArchive");
  EXPECT_EQ(folder.Content("kept.qel"), "x" + optimized + "\r\n");
  Choose("frmViewLog", "mnuSearchFind");
  QTest::keyClicks(&Get<QLineEdit>("frmFind", "Text1"), "writes");
  Keep("frmFind", "open");
  Click(Get<QPushButton>("frmFind", "cmdFind"));
  EXPECT_EQ(text.textCursor().selectedText(), "WRITES");
  WindowOf("frmViewLog").close();
  EXPECT_EQ(Log(), "x" + optimized + "\r\n") << "the box was confirmed";

  ClickTool("frmMain", "ToolbarMain", "Clear Modem Log");
  EXPECT_NE(Log().find("New modem log file created by QEL"), std::string::npos);
  EXPECT_EQ(MainForm->LabelLogEntries2.Caption(), "1");
}

}  // namespace qel
