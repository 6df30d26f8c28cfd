// A monkey before the real windows. Whatever it does at random, the program neither crashes nor hangs, tells
// of no fault of its own, and keeps its windows on the screen. It plays for QEL_MONKEY_SECONDS, round after
// round; the first has the seed QEL_MONKEY_SEED, each other one the next. A round is a process of its own and
// its time is played too, so that its seed plays it again, act by act, however slow the machine is.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <random>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "ProgramTest.h"
#include "core/Surroundings.h"
#include "desktop/ModalWindows.h"
#include "settings/Settings.h"

namespace qel {
namespace {

constexpr int ActsOfARound = 1000, PlacingActs = 50;      // until a new window has to be on the screen
constexpr unsigned HangTime = 60;                         // seconds without an act
constexpr long PlayBegins = 1'000'000'000, ActTime = 20;  // milliseconds

long playedTime = 0;  // milliseconds; 0 where no round is played

class Monkey : public ProgramTest, private DesktopHost {
 protected:
  Monkey() : DesktopHost(*windows) {}
  [[noreturn]] void PlayRound(unsigned seed, bool tells) {
    tellsActs = tells;
    const Surroundings here(*this, *this);
    dice.seed(seed);
    playedTime = PlayBegins;
    folder.Empty();
    std::filesystem::current_path(folder.Path());
    for (const char* place : {"QEL_HOME", "WinDir"}) setenv(place, ".", 1);  // the same name in every round
    const std::string share = QEL_SOURCE_DIR "/share/";
    for (const auto& [name, sample] : {std::pair{"ModemLog.txt", "samples/ModemLog.txt"},
                                       {"registry.reg", "samples/QEL.reg"},
                                       {"QEL.HLP", "QEL.HLP"}})
      if (Roll(4) > 0) folder.Put(name, ReadWholeFile(share + sample));
    session->TipShown = false;
    ShowForms(Loop);
    Arm();
    Loop.Dispatch([this] { qel::StartProgram(*windows); });
    Loop.Run();
    ReleaseFaces(windows->Screen);
    windows.reset();
    std::exit(HasFailure());
  }

 private:
  // It starts no program, opens no document, plays and prints nothing; its files lie in its folder.
  void PlaySoundFile(const std::string&) override {}
  void Print(const PrintJob&) override {}
  void OpenDocument(const std::string&) override {}
  void StartProgram(const std::string&) override {}
  std::optional<std::string> AskOpenFile(const FileDialog& dialog) override {
    const auto path = AskSaveFile(dialog);
    return PathExists(*path) ? path : std::nullopt;
  }
  std::optional<std::string> AskSaveFile(const FileDialog&) override {
    return OneOf<const char*>({"./ModemLog.txt", "./kept.qel", "./report.txt", "./settings.reg"});
  }
  // Its answers to a scan without a log, a number too big for its field, a period too long to be counted.
  Answer ErrorBox(const RunTimeError& error, const Message& message) override {
    const std::string& place = CurrentSurroundings().ProcedureTrace;
    const bool isTooLong =
        place == "checkProcess" && DaysBetween(period.PeriodStart, period.PeriodEnd) > 32766;
    const bool isNoLog =
        place == "btnScan_Click" && !PathExists(settings.ModemLogDir + settings.ModemLogFile);
    const int expected = isNoLog ? FileNotFound : isTooLong || place.ends_with("_LostFocus") ? Overflow : 0;
    EXPECT_EQ(error.Number(), expected) << message.Text;
    return Answer::Ignore;
  }

  int Roll(int sides) { return static_cast<int>(dice() % static_cast<unsigned>(std::max(1, sides))); }
  template <class Thing>
  Thing OneOf(const QList<Thing>& things) {
    return things[Roll(static_cast<int>(things.size()))];
  }

  // Armed again before it acts: an act may bring up a window that waits for the next one.
  void Arm() {
    ::alarm(HangTime);
    QTimer::singleShot(0, qApp, [this] { Arm(), Act(); });
  }

  void Act() {
    playedTime += ActTime;
    if (++acts > ActsOfARound || HasFailure()) return Loop.Dispatch([] { throw ProgramEnd(); });
    QWidgetList windows, widgets;
    for (QWidget* shown : QApplication::topLevelWidgets()) {
      if (!shown->isVisible() || shown->windowType() == Qt::ToolTip) continue;
      if (!IsKeptFrom(*shown)) windows.push_back(shown);
      const bool isOff = !shown->screen()->availableGeometry().contains(shown->frameGeometry());
      const int offFor = isOff && shown->windowType() != Qt::Popup ? shown->property("off").toInt() + 1 : 0;
      shown->setProperty("off", offFor);
      EXPECT_LT(offFor, PlacingActs) << shown->windowTitle().toStdString() << " is off the screen";
    }
    if (windows.isEmpty()) return;
    std::ranges::sort(windows, {}, &QWidget::objectName);
    QWidget* window = QApplication::activePopupWidget();
    if (!window) window = QApplication::activeWindow();
    const bool isUsable = window && (window->windowType() == Qt::Popup || !IsKeptFrom(*window));
    if (!isUsable || Roll(60) == 0) return OneOf(windows)->activateWindow();
    widgets.push_back(window);
    for (QWidget* inside : window->findChildren<QWidget*>())
      if (inside->isVisible() && inside->window() == window) widgets.push_back(inside);
    const int hand = Roll(20);
    if (hand < 10) return UseMouse(*OneOf(widgets));
    hand < 19 ? UseKeys(window->focusWidget() ? *window->focusWidget() : *window) : UseFrame(*window);
  }

  void Note(const QString& act, const QWidget& what) const {
    if (tellsActs)
      qInfo() << act << what.window()->objectName() << what.metaObject()->className() << what.objectName();
  }

  void UseMouse(QWidget& widget) {
    const QPoint at(Roll(widget.width()), Roll(widget.height())), to(Roll(500), Roll(500));
    const int how = Roll(8);
    Note(QString("mouse %1 %2,%3").arg(how).arg(at.x()).arg(at.y()), widget);
    const QPointer<QWidget> left = &widget;  // a press may be the end of it
    if (how == 7) {
      const QPoint turns(0, Roll(2) ? 120 : -120);
      QWheelEvent wheel(at, widget.mapToGlobal(at), {}, turns, {}, {}, Qt::NoScrollPhase, false);
      QApplication::sendEvent(left, &wheel);
      return;
    }
    const Qt::MouseButton button = how == 5 ? Qt::RightButton : Qt::LeftButton;
    how == 4 ? QTest::mouseDClick(left, button, {}, at) : QTest::mousePress(left, button, {}, at);
    if (left && how == 6) QTest::mouseMove(left, to);
    if (left) QTest::mouseRelease(left, button, {}, how == 6 ? to : at);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, at, left ? left->mapToGlobal(at) : at);
    if (left && how == 5) QApplication::sendEvent(left, &menu);
  }

  void UseKeys(QWidget& focus) {
    const QPointer<QWidget> left = &focus;
    const auto oneOf = [this](const char* keys) { return OneOf(QString(keys).split(' ')); };
    QString key = oneOf("11051998 5550100 0.05 1 9 / - a \"");
    const int how = Roll(6);
    if (how == 2) key = "Alt+" + QString(QChar('A' + Roll(26)));
    if (how == 3) key = "Ctrl+" + oneOf("V V X C A Z F S P");
    if (how > 3)
      key =
          OneOf<QString>({"", "", "Shift+", "Ctrl+"}) +
          oneOf(
              "Tab Tab Backtab Return Escape Space Up Down Left Right Home End PgUp PgDown Ins Del Backspace "
              "F1 F3 F10");
    Note("keys " + key, focus);
    if (key == "Ctrl+V") {
      auto* const clip = new QMimeData;  // the owner of a clipboard may offer no text, or nothing
      const QString text = OneOf<const char*>({"", "<b>", "11/05/1998", "one\ntwo\r\n\tthree \u20ac \u4e00"});
      if (!text.isEmpty()) text == "<b>" ? clip->setHtml(text) : clip->setText(text);
      QApplication::clipboard()->setMimeData(clip);
    }
    if (how > 1) return QTest::keySequence(&focus, QKeySequence(key));
    for (const QChar character : key)
      if (left) QTest::keyClick(left, character.toLatin1());
  }

  void UseFrame(QWidget& window) {
    const QPoint room = window.screen()->availableGeometry().bottomRight() - window.frameGeometry().topLeft();
    const int how = Roll(6);
    Note(QString("frame %1").arg(how), window);
    if (how == 0 && (window.objectName() != "frmMain" || Roll(10) == 0)) return void(window.close());
    if (window.windowType() != Qt::Popup) window.resize(Roll(room.x() - 10), Roll(room.y() - 10));
  }

  std::mt19937 dice;
  int acts = 0;
  bool tellsActs = false;
};

TEST_F(Monkey, DoesNoHarm) {
  if (::testing::UnitTest::GetInstance()->test_to_run_count() > 1)
    GTEST_SKIP() << "Threads that other tests have started would be missing in a round.";
  QDeadlineTimer end(1000 * qEnvironmentVariable("QEL_MONKEY_SECONDS", "2").toInt());
  unsigned seed = qEnvironmentVariable("QEL_MONKEY_SEED", "1").toUInt();
  std::cerr << "The monkey begins with the seed " << seed << ".\n";
  const auto play = [this](unsigned seed, bool tells) {
    int outcome = 0;
    const pid_t round = ::fork();
    if (round == 0) PlayRound(seed, tells);
    return ::waitpid(round, &outcome, 0) == round && outcome == 0;
  };
  for (; !end.hasExpired(); ++seed)
    if (!play(seed, false)) {
      play(seed, true);
      FAIL() << "The round of seed " << seed << " goes wrong. It was played again, telling its acts.";
    }
}

}  // namespace

// By which the toolkit's timers go.
extern "C" int clock_gettime(clockid_t clock, timespec* now) noexcept {
  if (playedTime == 0 || clock != CLOCK_MONOTONIC)
    return static_cast<int>(::syscall(SYS_clock_gettime, clock, now));
  *now = {playedTime / 1000, playedTime % 1000 * 1'000'000};
  return 0;
}

}  // namespace qel
