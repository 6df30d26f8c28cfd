#include <QClipboard>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>

#include "SampleForm.h"

namespace qel {
namespace {

class TextArea : public DesktopTest {
 protected:
  TextArea() { form.txtReport.SetFocus(); }
  void Press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(&area, static_cast<Qt::Key>(key), with);
  }
  QPlainTextEdit& area = Get<QPlainTextEdit>("txtReport");
};

TEST_F(TextArea, AnEditReachesTheModelWhateverTheLineBreaksAre) {
  const struct {
    const char *before, *after;
    int start;  // of the insertion point
  } cases[] = {
      {"one\r\ntwo\r\n", "one\r\nxo\r\n\r\n", 9},
      {"one\ntwo\n", "one\nxo\r\n\n", 8},
      {"one\rtwo\r\n", "one\rxo\r\n\r\n", 8},
      {"one\n\rwo", "one\nxo\r\n", 8},
  };
  for (const auto& c : cases) {
    form.txtReport.Text = c.before;
    form.txtReport.Select(0, 0);
    Press(Qt::Key_Down);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_X);
    Press(Qt::Key_End);
    Press(Qt::Key_Return);
    EXPECT_EQ(form.txtReport.Text(), c.after);
    EXPECT_EQ(form.txtReport.SelStart(), c.start) << c.before;
    Press(Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(form.txtReport.Text(), c.after) << "nobody's access key writes nothing";
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.txtReport.SelLength(), static_cast<int>(form.txtReport.Text().size())) << c.before;
    Press(Qt::Key_Delete);
    EXPECT_EQ(form.txtReport.Text(), "");
  }
}

TEST_F(TextArea, AHandlerHasTheLastWordAndALockKeepsTheText) {
  form.txtReport.Change = [this] {
    if (form.txtReport.Text() == "ab") form.txtReport.Text = "over";
  };
  QTest::keyClicks(&area, "ab");
  EXPECT_EQ(area.toPlainText(), "over");
  form.txtReport.Locked = true;
  QTest::keyClicks(&area, "x");
  Press(Qt::Key_Home);
  Press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(form.txtReport.Text(), "over");
  EXPECT_EQ(form.txtReport.SelText(), "o") << "the keys select all the same";
}

// A clipboard that is owned may still offer nothing.
TEST_F(TextArea, PastingIsTheModelsAndTakesNothingFromAnEmptyClipboard) {
  auto& line = Get<QLineEdit>("txtName");
  form.txtReport.Text = form.txtName.Text = "old";
  for (const bool offers : {false, true}) {
    auto* const data = new QMimeData;
    if (offers) data->setText("one\ntwo");
    QApplication::clipboard()->setMimeData(data);
    form.txtReport.SetFocus();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtReport.Text(), offers ? "one\r\ntwo" : "old");
    form.txtName.SetFocus();
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtName.Text(), offers ? "one\ntwo" : "old");
  }
  EXPECT_EQ(area.toPlainText(), "one\ntwo");
  form.txtReport.Locked = true;
  form.txtReport.SetFocus();
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form.txtReport.Text(), "one\r\ntwo");
}

TEST_F(TextArea, TypingIsQuickInSeveralMegabytes) {
  std::string text;
  for (int i = 0; i < 60000; ++i) text += "10-05-1998 10:00:00.00 - some words of a modem's log\r\n";
  form.txtReport.Text = text;
  form.txtReport.Select(0, 0);
  QElapsedTimer clock;
  clock.start();
  for (int i = 0; i < 30; ++i) Press(Qt::Key_X);
  for (int i = 0; i < 3000; ++i) Press(Qt::Key_Right);
  EXPECT_LT(clock.elapsed(), 1500);
  EXPECT_EQ(form.txtReport.Text().size(), text.size() + 30);
}

}  // namespace
}  // namespace qel
