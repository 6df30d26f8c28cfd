#include <gtest/gtest.h>

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
  MaskedEdit& Field(int field) { return field == 1 ? MainForm->inputStarting : MainForm->inputEnding; }
};

TEST_F(PeriodTest, DatesAreHeldInsideTheLogAndInOrder) {
  const struct {
    int field;
    const char *typed, *period, *status;
  } cases[] = {
      {1, "01/01/1999", "01/05/1999 - 01/20/1999",
       "The start date cannot be less than the first entry in modem log!"},
      {2, "01/30/1999", "01/05/1999 - 01/20/1999",
       "The end date cannot be greater than the last entry in modem log!"},
      {2, "01/04/1999", "01/05/1999 - 01/05/1999", "The end date cannot be less than the start date!"},
      {1, "01/25/1999", "01/20/1999 - 01/20/1999", "The start date cannot be greater than the end date!"},
      {1, "01/10/1999", "01/10/1999 - 01/20/1999", ""},
      {2, "01/10/1999", "01/05/1999 - 01/10/1999", ""},
  };
  for (const auto& c : cases) {
    MainForm.Reset();
    Show();
    Field(c.field).UserText(c.typed);
    EXPECT_EQ(Period(), c.period) << c.typed;
    const bool complains = *c.status != 0;
    EXPECT_EQ(host.Showed("beep"), complains) << c.typed;
    EXPECT_EQ(MainForm->StatusHold, complains) << c.typed;
    EXPECT_EQ(Status(), complains ? c.status : StatusMessages[static_cast<std::size_t>(c.field)].Text)
        << c.typed;
    EXPECT_TRUE(MainForm->btnProcess.Enabled);
  }
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
  EXPECT_TRUE(window.StatusBarMain.Font().Bold);
  EXPECT_TRUE(host.Showed("beep"));
  window.inputStarting.UserText("01/12/1999");
  window.inputEnding.UserClick();
  EXPECT_TRUE(window.inputEnding.HasFocus());
  EXPECT_TRUE(window.imgEndArrow.Visible && !window.imgStartArrow.Visible);
}

TEST_F(PeriodTest, TheButtonCountsTheDays) {
  Show();
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 16 days");
  MainForm->inputEnding.UserText("01/05/1999");
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 1 day");
}

TEST_F(PeriodTest, APeriodBeyondSixteenBitsIsAnOverflow) {
  Show("01-05-1905", "01-20-1999");
  ASSERT_EQ(host.messages.size(), 2u) << "the period of the whole log";
  EXPECT_NE(host.messages[0].Text.find("Error code: 6"), std::string::npos);
  host.messages.clear();
  MainForm->inputStarting.UserText(format_date(DateSerial(1999, 1, 20) - 32766));
  EXPECT_EQ(PeriodDays, 32767);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PeriodTest, TheFirstDayFollowsThePreference) {
  const struct {
    const char* preference;
    int week, month;
    const char* start;
  } cases[] = {
      {"First Log Entry", 0, 0, "12/01/1998"}, {"Last Log Entry", 0, 0, "01/31/1999"},
      {"Start of Week", 0, 0, "01/11/1999"},   {"Start of Week", 4, 0, "01/15/1999"},
      {"Start of Week", 6, 0, "01/10/1999"},   {"Start of Month", 0, 0, "01/01/1999"},
      {"Start of Month", 0, 3, "01/06/1999"},  {"Start of Month", 0, 8, "01/15/1999"},
      {"User Defined", 0, 0, "12/24/1998"},    {"Nonsense", 0, 0, "01/15/1999"},
  };
  UserStartDate = DateSerial(1998, 12, 24);
  for (const auto& c : cases) {
    MainForm.Reset();
    UserStartPref = c.preference;
    UserStartOfWeek = Int16(c.week);
    UserStartOfMonth = Int16(c.month);
    Show("12-01-1998", "01-31-1999");
    EXPECT_EQ(Period(), std::string(c.start) + " - 01/31/1999") << c.preference << c.week << c.month;
  }
}

TEST_F(PeriodTest, DateCommandsMoveTheActiveField) {
  using Command = void (*)(frmMain&);
  const struct {
    const char* name;
    Command command;
    const char* period;  // from 01/10 - 01/25, the ending date being active
  } cases[] = {
      {"today", [](frmMain& w) { w.mnuToday.UserClick(); }, "01/10/1999 - 01/15/1999"},
      {"week on", [](frmMain& w) { w.mnuPlusWeek.UserClick(); }, "01/10/1999 - 02/01/1999"},
      {"week back", [](frmMain& w) { w.mnuMinusWeek.UserClick(); }, "01/10/1999 - 01/18/1999"},
      {"month on", [](frmMain& w) { w.mnuPlusMonth.UserClick(); }, "01/10/1999 - 02/25/1999"},
      {"month back", [](frmMain& w) { w.mnuMinusMonth.UserClick(); }, "12/25/1998 - 12/25/1998"},
      {"log start", [](frmMain& w) { w.mnuLogStart.UserClick(); }, "12/01/1998 - 12/01/1998"},
      {"last entry", [](frmMain& w) { w.ToolbarMain.UserButtonClick("Last Entry"); },
       "01/10/1999 - 03/31/1999"},
      {"start up", [](frmMain& w) { w.UpDown1.UserUp(); }, "01/11/1999 - 01/25/1999"},
      {"end down", [](frmMain& w) { w.UpDown2.UserDown(); }, "01/10/1999 - 01/24/1999"},
      {"week up", [](frmMain& w) { w.UpDown3.UserUp(); }, "01/10/1999 - 02/01/1999"},
      {"month down", [](frmMain& w) { w.UpDown4.UserDown(); }, "12/25/1998 - 12/25/1998"},
      {"calendar", [](frmMain& w) { w.Calendar1.UserPick(DateSerial(1999, 2, 2)); },
       "01/10/1999 - 02/02/1999"},
      {"label", [](frmMain& w) { w.LabelEnding.UserDblClick(); }, "01/10/1999 - 01/15/1999"},
      {"arrow key",
       [](frmMain& w) {
         KeyPress up{.key = Key::Up};
         w.inputStarting.UserKey(up);
         EXPECT_TRUE(up.Handled);
       },
       "01/11/1999 - 01/25/1999"},
      {"other label", [](frmMain& w) { w.LabelStarting.UserDblClick(); }, "01/15/1999 - 01/25/1999"},
  };
  for (const auto& c : cases) {
    MainForm.Reset();
    Show("12-01-1998", "03-31-1999");
    MainForm->inputStarting.UserText("01/10/1999");
    MainForm->inputEnding.UserText("01/25/1999");
    c.command(*MainForm);
    EXPECT_EQ(Period(), c.period) << c.name;
  }
}

TEST_F(PeriodTest, TheStartingDateBecomesTheDefaultWhenTheUserAgrees) {
  Show();
  MainForm->inputStarting.UserText("01/08/1999");
  host.answers = {Answer::Cancel, Answer::OK};
  MainForm->mnuDefaultDate.UserClick();
  EXPECT_EQ(UserStartPref, "First Log Entry");
  MainForm->mnuDefaultDate.UserClick();
  EXPECT_EQ(UserStartPref, "User Defined");
  EXPECT_EQ(UserStartDate, DateSerial(1999, 1, 8));
}

TEST_F(PeriodTest, WithoutALogAnyDatePassesAndNoReportIsOffered) {
  MainForm->Show();
  EXPECT_FALSE(MainForm->inputStarting.Enabled);
  EXPECT_FALSE(MainForm->btnProcess.Enabled);
  EXPECT_EQ(Period(), "01/15/1999 - 01/15/1999");
  MainForm->Calendar1.UserPick(DateSerial(2031, 5, 5));
  EXPECT_EQ(Period(), "05/05/2031 - 05/05/2031");
  EXPECT_FALSE(MainForm->btnProcess.Enabled);
}

}  // namespace
}  // namespace qel
