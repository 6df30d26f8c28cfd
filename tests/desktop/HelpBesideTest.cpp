// The help stands beside the program's work, modal windows and boxes included, and takes clicks there.
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

#include "ProgramTest.h"
#include "core/Surroundings.h"

namespace qel {
namespace {

class HelpBeside : public ProgramTest {
 protected:
  HelpBeside() {
    folder.Put("QEL.HLP", ReadWholeFile(QEL_SOURCE_DIR "/share/QEL.HLP"));
    DefaultLog(usable);
    windows->MainForm->Show();
  }
  static void PressF1(Form& form) {
    QWidget& window = FaceOf(form)->Window();
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_F1);
    QTest::qWait(30);
  }
  // As the window system brings a click, which a modal window may keep away.
  static void ClickByWindow(QWidget& widget, const QPoint& at) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
    QTest::qWait(30);
  }
  std::string Topic() {
    return windows->HelpForm->lstTopics
        .Items()[static_cast<std::size_t>(windows->HelpForm->lstTopics.ListIndex())];
  }
};

TEST_F(HelpBeside, TheOptionsItTakesClicksAndOutlivesThem) {
  PressF1(*windows->MainForm);  // open before the options, which keep the user from it
  QTimer::singleShot(50, qApp, [this] {
    PressF1(*windows->SetupForm);
    EXPECT_EQ(Topic(), "    Options: General");
    auto& topics = Get<QListWidget>("frmHelp", "lstTopics");
    const QRect entry = topics.visualItemRect(topics.currentItem());
    ClickByWindow(*topics.viewport(), entry.center() - QPoint(0, entry.height()));
    EXPECT_EQ(Topic(), "    The Options Window");
    auto& field = Get<QLineEdit>("frmSetup", "txtMaxServices");
    ClickByWindow(field, field.rect().center());
    EXPECT_TRUE(windows->SetupForm->General.txtMaxServices.HasFocus()) << "and so does the modal window";
    WindowOf("frmSetup").close();
  });
  desktop.Loop.Dispatch([this] { windows->SetupForm->ShowModal(); });
  EXPECT_TRUE(WindowOf("frmHelp").isVisible());
  WindowOf("frmMain").close();
  EXPECT_TRUE(windows->Screen.LoadedForms.empty());
}

TEST_F(HelpBeside, ABoxThatStaysWhileItsHelpIsRead) {
  QTimer::singleShot(50, qApp, [this] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (QAbstractButton* button : box->buttons())
      if (button->text() == "Help") button->click();
    EXPECT_TRUE(box->isVisible());
    auto& close = Get<QWidget>("frmHelp", "btnClose");
    ClickByWindow(close, close.rect().center());
    EXPECT_FALSE(windows->HelpForm.IsLoaded());
    box->buttons().front()->click();
  });
  EXPECT_EQ(MsgBox({"No log", "Title", Icon::Exclamation, Buttons::OK, 6}), Answer::OK);
}

}  // namespace
}  // namespace qel
