#include <QListWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QWindow>

#include "ProgramTest.h"
#include "platform/Files.h"

namespace qel {
namespace {

class HelpJourney : public ProgramTest {
 protected:
  HelpJourney() {
    PutSample("ModemLog.txt");
    folder.Put("QEL.HLP", ReadWholeFile(QEL_SOURCE_DIR "/share/QEL.HLP"));
  }
  static void PressF1(const char* form) {
    QWidget& window = WindowOf(form);
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_F1);
    Settle();
  }
  // As the window system brings a click, which a modal window may keep away.
  static void ClickByWindow(QWidget& widget, const QPoint& at) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
    Settle();
  }
  static std::string Topic() {
    return Get<QTextBrowser>("frmHelp", "docTopic").document()->firstBlock().text().toStdString();
  }
};

TEST_F(HelpJourney, FromTheMainWindowThroughALinkAndASearchAndBack) {
  Start();
  PressF1("frmMain");
  EXPECT_EQ(Topic(), "The Main Window");
  Keep("frmHelp", "topic");
  auto& page = Get<QTextBrowser>("frmHelp", "docTopic");
  page.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&page, Qt::Key_Tab);
  QTest::keyClick(&page, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Topic(), "Choosing the Period") << "the first link";
  Click(Get<QPushButton>("frmHelp", "btnBack"));
  EXPECT_EQ(Topic(), "The Main Window");
  ClickTool("frmMain", "ToolbarMain", "Search Help");
  QTest::keyClicks(QApplication::focusWidget(), "worked example");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  Settle();
  EXPECT_EQ(Topic(), "A Worked Example");
  Keep("frmHelp", "search");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(LoadedForm("frmHelp"), nullptr);
}

TEST_F(HelpJourney, ItWorksBesideAModalWindowAndOutlivesIt) {
  Start();
  PressF1("frmMain");  // open before the options, which keep the user from it
  act = [] {
    PressF1("frmSetup");
    EXPECT_EQ(Topic(), "Options: General");
    auto& topics = Get<QListWidget>("frmHelp", "lstTopics");
    const QRect entry = topics.visualItemRect(topics.currentItem());
    ClickByWindow(*topics.viewport(), entry.center() - QPoint(0, entry.height()));
    EXPECT_EQ(Topic(), "The Options Window") << "it takes a click";
    auto& field = Get<QLineEdit>("frmSetup", "txtMaxServices");
    ClickByWindow(field, field.rect().center());
    EXPECT_TRUE(SetupForm->txtMaxServices.HasFocus()) << "and so does the modal window";
    WindowOf("frmSetup").close();
    return true;
  };
  ClickTool("frmMain", "ToolbarMain", "Setup");
  EXPECT_EQ(LoadedForm("frmSetup"), nullptr);
  EXPECT_TRUE(WindowOf("frmHelp").isVisible());
  Click(Get<QPushButton>("frmHelp", "btnBack"));
  EXPECT_EQ(Topic(), "Options: General");
  WindowOf("frmMain").close();
  EXPECT_TRUE(LoadedForms.empty());
}

TEST_F(HelpJourney, ABoxStaysWhileItsHelpIsRead) {
  Start();
  clerk.stop();
  QTimer::singleShot(50, qApp, [] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (QAbstractButton* button : box->buttons())
      if (button->text() == "Help") Click(*button);
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(Topic(), "Getting Your System to Write a Modem Log");
    auto& close = Get<QPushButton>("frmHelp", "btnClose");
    ClickByWindow(close, close.rect().center());
    EXPECT_EQ(LoadedForm("frmHelp"), nullptr);
    box->buttons().front()->click();
  });
  EXPECT_EQ(MsgBox({"No log", "Title", Icon::Exclamation, Buttons::OK, 6}), Answer::OK);
}

}  // namespace
}  // namespace qel
