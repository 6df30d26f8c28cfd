#include <QCalendarWidget>
#include <QClipboard>
#include <QListWidget>
#include <QTabBar>
#include <QTableView>
#include <QTreeView>

#include "ProgramTest.h"
#include "support/ModemStore.h"

namespace qel {

class InputJourney : public ProgramTest {
 protected:
  static void Press(int key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), with);
  }
  static void Keys(const char* typed) { QTest::keyClicks(QApplication::focusWidget(), typed); }
  static std::string Period() {
    return MainForm->inputStarting.Text() + " - " + MainForm->inputEnding.Text();
  }
  static QWidget& Days(const char* form, const char* calendar) {
    return *Get<QCalendarWidget>(form, calendar).findChild<QTableView*>()->viewport();
  }
  static QPoint DayAt(const char* form, const char* calendar) {
    auto& days = *Get<QCalendarWidget>(form, calendar).findChild<QTableView*>();
    return days.visualRect(days.currentIndex()).center();
  }

  // Goes round by the tab key; each press has to lead to another control.
  static void WalkByTab(Form& form, int key) {
    const std::size_t steps = form.Controls().size();
    for (std::size_t i = 0; i < steps; ++i) {
      Control* const left = form.ActiveControl();
      QWidget* const focus = QApplication::focusWidget();
      if (!left || !focus) return;
      Press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
      QCoreApplication::processEvents();
      QCoreApplication::processEvents();
      EXPECT_NE(QApplication::focusWidget(), focus) << form.Name() << ": " << left->Name();
      EXPECT_EQ(FaceOf(form)->ControlOf(QApplication::focusWidget()), form.ActiveControl()) << left->Name();
    }
  }
};

TEST_F(InputJourney, APeriodIsTypedAsPeopleType) {
  PutSample("ModemLog.txt");
  Start();
  EXPECT_EQ(Get<QLineEdit>("frmMain", "inputStarting").selectedText(),
            MainForm->inputStarting.Text().c_str());
  Click(Get<QLineEdit>("frmMain", "inputStarting"));
  Keys("11011998");
  Press(Qt::Key_Tab);
  Keys("11301998");
  EXPECT_EQ(Period(), "11/01/1998 - 11/30/1998");
  EXPECT_FALSE(MainForm->StatusHold);

  Press(Qt::Key_Backtab, Qt::ShiftModifier);
  Keys("11/2/98");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Period(), "11/02/1998 - 11/30/1998");
  EXPECT_TRUE(MainForm->inputEnding.HasFocus());
  QApplication::clipboard()->setText("1998-11-20");
  Press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Period(), "11/02/1998 - 11/20/1998");

  // A day that is picked ends what is unfinished, and so do the buttons.
  Keys("1");
  Click(Days("frmMain", "Calendar1"), DayAt("frmMain", "Calendar1"));
  EXPECT_EQ(Period(), "11/02/1998 - 11/20/1998");
  EXPECT_FALSE(MainForm->StatusHold);
  Keys("1");
  Click(Get<QPushButton>("frmMain", "btnViewLog"));
  EXPECT_NE(LoadedForm("frmViewLog"), nullptr);
  WindowOf("frmMain").activateWindow();
  Click(Get<QPushButton>("frmMain", "btnExit"));
  EXPECT_TRUE(ProgramEnded());
}

TEST_F(InputJourney, TheTabKeyLeavesEachFieldAtOnce) {
  PutSample("ModemLog.txt");
  Start();
  Store({"\\Modem\\0000"});
  PreConfigure(true);
  SetupForm->Load();
  SetupForm->lstServices.SelectRow(1);
  NewService = NewTariff = false;
  ServiceForm->Load();
  for (Form* form :
       std::initializer_list<Form*>{&*MainForm, &*FindForm, &*PurgeForm, &*SetupForm, &*ServiceForm,
                                    &*TariffForm, &*TipForm, &*HelpForm, &*PreConfigureForm}) {
    form->Show();
    QWidget& window = FaceOf(*form)->Window();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window)) << form->Name();
    auto* const tabs = window.findChild<QTabBar*>("TabStrip1");
    for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
      if (tabs) Click(*tabs, tabs->tabRect(tab).center());
      for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) WalkByTab(*form, key);
    }
    if (form != &*MainForm) form->Hide();
  }
}

TEST_F(InputJourney, AClickOnWhatIsSelectedAlreadyIsAClick) {
  PutSample("ModemLog.txt");
  Start();
  UsedHolidays = 1;
  Holidays[0] = Today() + 40;
  act = [] {
    auto& rows = Get<QTreeView>("frmSetup", "lstServices");
    auto& tabs = Get<QTabBar>("frmSetup", "TabStrip1");
    Click(tabs, tabs.tabRect(2).center());
    const bool copies = SetupForm->btnCopy.Enabled;
    SetupForm->btnCopy.Enabled = !copies;
    Click(*rows.viewport(), rows.visualRect(rows.currentIndex()).center());
    EXPECT_EQ(SetupForm->btnCopy.Enabled, copies);

    Click(tabs, tabs.tabRect(6).center());
    auto& list = Get<QListWidget>("frmSetup", "lstHolidays");
    SetupForm->CalHolidays.Value = Today() + 1;
    Click(*list.viewport(), list.visualItemRect(list.item(0)).center());
    EXPECT_EQ(SetupForm->CalHolidays.Value, Today() + 40);

    // Enter takes the day, and the page that is turned brings its own.
    auto& calendar = Get<QCalendarWidget>("frmSetup", "CalHolidays");
    const QDate before = calendar.selectedDate();
    calendar.showNextMonth();
    const QDate turned = calendar.selectedDate();
    EXPECT_EQ(turned.month(), before.addMonths(1).month());
    SetupForm->CalHolidays.SetFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(SetupForm->lstHolidays.ListCount(), 2);
    Click(Get<QPushButton>("frmSetup", "btnCancel"));
    return true;
  };
  Choose("frmMain", "mnuSetup");
  EXPECT_EQ(LoadedForm("frmSetup"), nullptr);
}

TEST_F(InputJourney, EscapeClosesAbout) {
  PutSample("ModemLog.txt");
  Start();
  act = [] {
    QTest::keyClick(WindowOf("frmAbout").focusWidget(), Qt::Key_Escape);
    return true;
  };
  Choose("frmMain", "mnuAbout");
  EXPECT_EQ(LoadedForm("frmAbout"), nullptr);
}

}  // namespace qel
