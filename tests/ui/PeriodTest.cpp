#include "support/Cases.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class PeriodTest : public WindowTest {
 protected:
  PeriodTest() { UserStartPref = "First Log Entry"; }
  void Show(const std::string& first = "01-05-1999", const std::string& last = "01-20-1999") {
    WindowTest::Show(LogOf(first, last));
    host.transcript.clear();
  }
  std::string Period() const { return MainForm->inputStarting.Text() + " - " + MainForm->inputEnding.Text(); }
};

TEST_F(PeriodTest, ADateOutsideTheLogIsPutBackWithAComplaint) {
  Show();
  MainForm->inputStarting.UserText("01/20/1999");
  EXPECT_FALSE(host.Showed("beep") || MainForm->StatusHold);
  EXPECT_EQ(Status(), StatusMessages[1].Text);
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 1 day");
  MainForm->inputStarting.UserText("01/04/1999");
  EXPECT_EQ(Period(), "01/05/1999 - 01/20/1999");
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 16 days");
  EXPECT_TRUE(host.Showed("beep") && MainForm->StatusHold && MainForm->btnProcess.Enabled);
  MainForm->btnExit.GotFocus();
  EXPECT_EQ(Status(), "The start date cannot be less than the first entry in modem log!");
  MainForm->Timer1.Tick();
  EXPECT_EQ(Status(), "Exit Qelmark.") << "its time is over";
  EXPECT_FALSE(MainForm->Timer1.Enabled || MainForm->StatusBarMain.Font().Bold);
}

TEST_F(PeriodTest, ADateIsTypedOverTheWholeFieldAndTakenWhenItIsWhole) {
  Show("10-05-1998", "01-05-1999");
  MainForm->inputStarting.UserType("11011998");
  MainForm->MoveFocusOn();
  ASSERT_TRUE(MainForm->inputEnding.HasFocus());
  MainForm->inputEnding.UserType("11301998");
  EXPECT_EQ(Period(), "11/01/1998 - 11/30/1998");
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 30 days");
  EXPECT_FALSE(host.Showed("beep") || MainForm->StatusHold);
}

TEST_F(PeriodTest, APastedDateIsReadInTheFormsThatAreCommon) {
  for (const char* date : {"11/30/1998", "11-30-1998", " 1998-11-30\r\n", "1998-11-30T10:00:00", "19981130",
                           "11301998", "30 Nov 1998", "11-30-1998 10:00:00.00 - Dialing", "Nov 30, 1998"}) {
    MainForm.Reset();
    Show("10-05-1998", "01-05-1999");
    MainForm->inputStarting.UserPaste(date);
    EXPECT_EQ(Period(), "11/30/1998 - 01/05/1999") << date;
  }
  for (const char* text : {"", "no date", "10:30", "19984111"}) {
    MainForm->inputStarting.UserPaste(text);
    EXPECT_EQ(PeriodStart, DateSerial(1998, 11, 30)) << text;
  }
}

TEST_F(PeriodTest, AComplaintGoesWithItsReasonAndComesOnlyWithOne) {
  Show();
  frmMain& window = *MainForm;
  window.inputStarting.UserType("01041999");
  EXPECT_TRUE(window.StatusHold) << "before the log";
  window.inputStarting.UserType("0106");
  EXPECT_TRUE(window.StatusHold) << "still unfinished";
  window.inputStarting.UserType("1999");
  EXPECT_EQ(Status(), StatusMessages[1].Text);
  window.inputEnding.SetFocus();
  window.inputEnding.UserType("1");
  window.inputStarting.UserClick();
  EXPECT_EQ(Status(), "Invalid date entry!");
  host.transcript.clear();
  window.Timer1.Tick();
  ActiveForm = nullptr;
  window.Activate();  // as from About
  EXPECT_TRUE(window.inputEnding.HasFocus() && !host.Showed("beep"));
  window.Calendar1.UserPick(DateSerial(1999, 1, 10));
  EXPECT_EQ(Period(), "01/06/1999 - 01/10/1999") << "a way out";
  EXPECT_EQ(Status(), StatusMessages[2].Text);
  window.inputEnding.UserPaste("2/1/1999");
  EXPECT_TRUE(window.StatusHold) << "behind the log";
  folder.Put("old.qel", LogOf("02-05-1998", "02-06-1998"));
  window.OpenArchive(folder.Path("old.qel"));
  EXPECT_EQ(Status(), StatusMessages[1].Text) << "both dates were set anew";
  window.mnuAbout.UserClick();
  ActiveForm = nullptr;
  window.Activate();
  EXPECT_EQ(Status(), StatusMessages[1].Text) << "nobody chose a date outside that archive";
}

TEST_F(PeriodTest, AnUnfinishedDateHoldsTheFocusAndStopsTheReport) {
  Show();
  frmMain& window = *MainForm;
  window.inputStarting.UserText("01/1_/1999");
  EXPECT_FALSE(window.btnProcess.Enabled);
  EXPECT_EQ(PeriodStart, DateSerial(1999, 1, 5)) << "the last date stays";
  window.inputEnding.UserClick();
  EXPECT_TRUE(window.inputStarting.HasFocus());
  EXPECT_EQ(Status(), "Invalid date entry!");
  EXPECT_TRUE(window.StatusBarMain.Font().Bold && host.Showed("beep"));
  window.btnViewLog.UserClick();
  EXPECT_TRUE(ViewLogForm.IsLoaded() && window.inputStarting.HasFocus()) << "a way out";
  window.inputStarting.UserText("01/12/1999");
  window.inputEnding.UserClick();
  EXPECT_TRUE(window.inputEnding.HasFocus());
  EXPECT_TRUE(window.imgEndArrow.Visible && !window.imgStartArrow.Visible);
}

TEST_F(PeriodTest, APeriodBeyondSixteenBitsIsAnOverflow) {
  Show("01-05-1905", "01-20-1999");
  ASSERT_EQ(host.messages.size(), 2u) << "the period of the whole log";
  EXPECT_NE(host.messages[0].Text.find("Error code: 6"), std::string::npos);
  EXPECT_NE(host.messages[0].Text.find("Sub: checkProcess"), std::string::npos);
  EXPECT_EQ(host.messages[0].DefaultButton, 3) << "Enter ignores";
  EXPECT_TRUE(MainForm->btnProcess.Enabled);
  host.messages.clear();
  MainForm->inputStarting.UserText(format_date(DateSerial(1999, 1, 20) - 32766));
  EXPECT_EQ(PeriodDays, 32767);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PeriodTest, TheFirstDayFollowsThePreference) {
  UserStartDate = DateSerial(1998, 12, 24);
  for (const auto& [preference, week, month, start] : Cases("ui/FirstDays")) {
    MainForm.Reset();
    UserStartPref = preference;
    UserStartOfWeek = std::stoi(week);
    UserStartOfMonth = std::stoi(month);
    Show("12-01-1998", "01-31-1999");
    EXPECT_EQ(Period(), start + " - 01/31/1999") << preference << week << month;
  }
}

void Command(const std::string& name, const std::string& gesture) {
  Control& control = *MainForm->Find(name);
  KeyPress up{.key = Key::Up};
  if (gesture == "click") control.UserClick();
  if (gesture == "double click") control.UserDblClick();
  if (gesture == "arrow key") control.UserKey(up);
  if (gesture == "up") dynamic_cast<UpDown&>(control).UserUp();
  if (gesture == "down") dynamic_cast<UpDown&>(control).UserDown();
  if (gesture == "pick") dynamic_cast<Calendar&>(control).UserPick(DateSerial(1999, 2, 2));
  if (gesture == "Last Entry") dynamic_cast<Toolbar&>(control).UserButtonClick(gesture);
  EXPECT_EQ(up.Handled, gesture == "arrow key");
}

TEST_F(PeriodTest, DateCommandsMoveTheActiveField) {
  for (const auto& [control, gesture, period] : Cases<3>("ui/DateCommands")) {
    MainForm.Reset();
    Show("12-01-1998", "03-31-1999");
    MainForm->inputStarting.UserText("01/10/1999");
    MainForm->inputEnding.UserText("01/25/1999");
    Command(control, gesture);
    EXPECT_EQ(Period(), period) << control;
  }
}

TEST_F(PeriodTest, AnEmptyLogBeginsAndEndsToday) {
  WindowTest::Show("");
  for (MenuItem* command : {&MainForm->mnuLogStart, &MainForm->mnuLogEnd}) {
    command->UserClick();
    EXPECT_EQ(Period(), "01/15/1999 - 01/15/1999");
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PeriodTest, TheStartingDateBecomesTheDefaultWhenTheUserAgrees) {
  Show();
  MainForm->inputStarting.UserText("01/08/1999");
  host.answers = {Answer::Cancel, Answer::OK};
  MainForm->mnuDefaultDate.UserClick();
  EXPECT_EQ(UserStartPref, "First Log Entry");
  MainForm->mnuDefaultDate.UserClick();
  EXPECT_EQ(std::tuple(UserStartPref, UserStartDate), std::tuple("User Defined", DateSerial(1999, 1, 8)));
}

TEST_F(PeriodTest, WithoutALogAnyDatePassesAndNoReportIsOffered) {
  MainForm->Show();
  EXPECT_FALSE(MainForm->inputStarting.Enabled || MainForm->btnProcess.Enabled);
  EXPECT_EQ(Period(), "01/15/1999 - 01/15/1999");
  MainForm->Calendar1.UserPick(DateSerial(2031, 5, 5));
  EXPECT_EQ(Period(), "05/05/2031 - 05/05/2031");
  EXPECT_FALSE(MainForm->btnProcess.Enabled);
}

}  // namespace
}  // namespace qel
