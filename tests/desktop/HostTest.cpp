#include <QBuffer>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPdfWriter>
#include <QTimer>
#include <array>
#include <filesystem>

#include "SampleForm.h"
#include "desktop/Dialogues.h"
#include "desktop/Printing.h"
#include "platform/Host.h"
#include "support/TemporaryFolder.h"
#include "values/RunTimeError.h"

namespace qel {
namespace {

class HostOfDesktop : public DesktopTest {
 protected:
  // Runs before the next box or modal window, once it is there.
  static void Then(std::function<void()> act) { QTimer::singleShot(20, qApp, std::move(act)); }
  static QMessageBox& Box() { return *qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
};

TEST_F(HostOfDesktop, ABoxAnswersByItsButtonsAndClosesOnlyWhereThatIsAnAnswer) {
  const struct {
    Buttons buttons;
    bool closes;
    int click;  // the button, where closing does nothing
    Answer answer;
    const char* captions;
  } cases[] = {
      {Buttons::OK, true, 0, Answer::OK, "OK Help "},
      {Buttons::OKCancel, true, 0, Answer::Cancel, "OK Cancel Help "},
      {Buttons::AbortRetryIgnore, false, 1, Answer::Retry, "&Abort &Retry &Ignore Help "},
      {Buttons::YesNo, false, 1, Answer::No, "&Yes &No Help "},
  };
  for (const auto& c : cases) {
    Then([&c] {
      QMessageBox& box = Box();
      EXPECT_EQ(box.text(), "a <b>\nc");
      QString captions;
      for (const QAbstractButton* button : box.buttons()) captions += button->text() + ' ';
      EXPECT_EQ(captions, c.captions);
      QTest::keyClick(&box, Qt::Key_Escape);
      EXPECT_EQ(box.isVisible(), !c.closes);
      if (!c.closes) box.buttons()[c.click]->click();
    });
    EXPECT_EQ(host.MessageBox({"a <b>\r\nc", "Title", Icon::Question, c.buttons, 6}), c.answer);
  }
}

TEST_F(HostOfDesktop, TheEndOfTheProgramUnwindsAModalWindow) {
  bool unwound = false;
  frmDialog dialog(windows.Screen);
  dialog.btnOK.Click = [] { throw ProgramEnd(); };
  form.btnOK.Click = [&] {
    struct Mark {
      bool& place;
      ~Mark() { place = true; }
    } mark{unwound};
    dialog.ShowModal();
    ADD_FAILURE() << "goes on behind the modal window";
  };
  Then([&] { FaceOf(dialog)->Window().findChild<QPushButton*>("btnOK")->click(); });
  Get<QPushButton>("btnOK").click();
  EXPECT_TRUE(unwound);
  EXPECT_TRUE(host.Loop.HasEnded());
  bool ran = false;
  host.Loop.Dispatch([&ran] { ran = true; });
  EXPECT_FALSE(ran) << "nothing happens any more";
}

TEST_F(HostOfDesktop, AnErrorThatNobodyDealtWithIsTold) {
  Then([] {
    EXPECT_EQ(Box().text(), "That device appears unavailable.");
    Box().buttons().front()->click();
  });
  int runs = 0;
  form.btnOK.Click = [&runs] { ++runs, Raise(DeviceUnavailable); };
  Get<QPushButton>("btnOK").click();
  EXPECT_EQ(runs, 1) << "a click happens once";
  EXPECT_FALSE(host.Loop.HasEnded());
}

TEST_F(HostOfDesktop, AYieldRunsTimersButTakesNoInput) {
  int clicks = 0, ticks = 0;
  form.btnOK.Click = [&clicks] { ++clicks; };
  QTimer::singleShot(0, qApp, [&] {
    ++ticks;
    QTest::mouseClick(&Get<QPushButton>("btnOK"), Qt::LeftButton);
  });
  host.Yield();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(clicks, 0);
  Click(Get<QPushButton>("btnOK"));
  EXPECT_EQ(clicks, 1);
  Then([this] { form.Unload(); });
  EXPECT_THROW(
      for (int i = 0; i < 100; ++i) {
        QTest::qSleep(5);
        host.Yield();
      },
      ProgramEnd);
}

TEST_F(HostOfDesktop, NothingThatTheUserDoesIsLostWhileWindowsArePainted) {
  int clicks = 0;
  form.btnOK.Click = [&clicks] { ++clicks; };
  QTimer::singleShot(0, qApp, [this] { QTest::mouseClick(&Get<QPushButton>("btnOK"), Qt::LeftButton); });
  host.Paint();
  Settle();
  EXPECT_EQ(clicks, 1);
}

TEST_F(HostOfDesktop, ABoxHasTheUsualPointerAndTheWorkItsHourglassAgain) {
  host.SetMousePointer(MousePointer::Hourglass);
  Then([] {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::keyClick(&Box(), Qt::Key_Escape);
  });
  EXPECT_EQ(host.MessageBox({"Help is at hand", "Title", Icon::None, Buttons::OK, 6}), Answer::OK);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  host.SetMousePointer(MousePointer::Default);
}

TEST_F(HostOfDesktop, AButtonThatWasPressedBeforeAYieldComesUpAgain) {
  auto& button = Get<QPushButton>("btnOK");
  QTest::mousePress(&button, Qt::LeftButton);
  QTimer::singleShot(0, qApp, [&] { QTest::mouseRelease(&button, Qt::LeftButton); });
  host.Yield();
  EXPECT_TRUE(button.isDown());
  Settle();
  EXPECT_FALSE(button.isDown());
}

TEST_F(HostOfDesktop, ASoundGoesToThePlayerThatCanPlayIt) {
  const TemporaryFolder folder;
  const std::string path = qgetenv("PATH").toStdString();
  qputenv("PATH", folder.Path().c_str());
  host.PlaySoundFile("/a.wav");  // nobody can: silence
  for (const auto& [player, script] : {std::pair{"paplay", "exit 1"},
                                       {"aplay", "/bin/sleep 0.1; echo \"$@\" > $0.played"},
                                       {"play", "> $0.played"}}) {
    folder.Put(player, std::string("#!/bin/sh\n") + script + "\n");
    std::filesystem::permissions(folder.Path(player), std::filesystem::perms::owner_all);
  }
  host.PlaySoundFile("/a.wav");
  qputenv("PATH", path.c_str());
  EXPECT_EQ(folder.Content("aplay.played"), "-q /a.wav\n");
  EXPECT_FALSE(folder.Has("play.played"));
}

TEST_F(HostOfDesktop, FiltersAndFailuresAreThoseOfThePlatform) {
  EXPECT_EQ(ToolkitFilter("Text (*.txt;*.log)|*.txt;*.log|All Files (*.*)|*.*"),
            "Text (*.txt *.log);;All Files (*)");
  EXPECT_EQ(ToolkitFilter("Archive (*.qel)|*.qel|Log (*.log, *.txt)|*.log;*.txt| All Files (*.*)|*.*"),
            "Archive, Log (*.qel *.log *.txt);;Archive (*.qel);;Log (*.log *.txt);; All Files (*)");
  EXPECT_THROW(host.OpenDocument("/no/such/file.txt"), RunTimeError);
  EXPECT_THROW(host.StartProgram("/no/such/program"), RunTimeError);
  Then([] {
    EXPECT_EQ(Box().text(), "No program on this system opens this:\n\nhttps://qel.example/");
    Box().buttons().front()->click();
  });
  host.OpenDocument("https://qel.example/");
}

// The name follows the kind that is chosen, unless it says itself of which kind it is.
TEST_F(HostOfDesktop, ANameToSaveUnderGetsTheExtensionOfItsKind) {
  const TemporaryFolder folder;
  for (const auto& [kind, typed, saved] : {std::array{"Text (*.txt)", "", "10.98 - 11.98.txt"},
                                           {"Page (*.html)", "", "10.98 - 11.98.html"},
                                           {"Page (*.html)", "a.b", "a.b.html"},
                                           {"Page (*.html)", "a.TXT", "a.TXT"}}) {
    Then([kind, typed] {
      auto& dialogue = *QApplication::activeModalWidget();
      auto& kinds = *dialogue.findChild<QComboBox*>("fileTypeCombo");
      kinds.setCurrentText(kind);
      emit kinds.textActivated(kind);
      auto& field = *dialogue.findChild<QLineEdit*>("fileNameEdit");
      if (*typed) field.setText(typed);
      QTest::keyClick(&field, Qt::Key_Return);
    });
    EXPECT_EQ(host.AskSaveFile({"Text (*.txt)|*.txt|Page (*.html)|*.html", folder.Path(), "10.98 - 11.98"}),
              folder.Path(saved));
  }
}

// The number of pages of a job in 10 points on A4.
int PagesOf(const std::string& text, const std::vector<Drawing>& drawings = {}) {
  QBuffer pdf;
  pdf.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&pdf);
    writer.setPageSize(QPageSize(QPageSize::A4));
    PrintJob job{"Report", text, {"", 10}, 567};
    job.Drawings = drawings;
    PrintPages(job, writer);
  }
  return static_cast<int>(pdf.data().count("/Type /Page\n"));
}

TEST_F(HostOfDesktop, LinesArePrintedWholeWhereTheTypeCanShrinkAndPagesFollow) {
  std::string shortLines, longLines, wrapped;
  for (int i = 0; i < 60; ++i) {
    shortLines += "line\r\n";
    longLines += std::string(120, 'x') + "\r\n";
    wrapped += std::string(400, 'x') + "\r\n";
  }
  EXPECT_EQ(PagesOf("one line"), 1);
  EXPECT_LE(PagesOf(longLines), PagesOf(shortLines)) << "smaller, not wrapped";
  EXPECT_EQ(PagesOf(wrapped), 2) << "three lines for one";
  const Drawing half{"Heading", "Caption", 720, 480, "<svg viewBox=\"0 0 720 480\"></svg>", {}};
  EXPECT_EQ(PagesOf("head", {half}), 1);
  EXPECT_EQ(PagesOf("head", {half, half, half}), 2) << "each is whole on its page";
  Then([] {
    QWidget& preview = *QApplication::activeModalWidget();
    EXPECT_GT(preview.height(), preview.screen()->availableSize().height() / 2) << "a page can be read";
    QTest::keyClick(&preview, Qt::Key_Escape);
  });
  PreviewAndPrint({"Report", shortLines, {"", 10}, 567, {}});
}

}  // namespace
}  // namespace qel
