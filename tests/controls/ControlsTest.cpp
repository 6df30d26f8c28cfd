#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "support/Cases.h"
#include "values/RunTimeError.h"

namespace qel {

class ControlsTest : public ::testing::Test {
 protected:
  Screen screen;
  Form form{"frmSample", screen};
  int clicks = 0;
};

TEST_F(ControlsTest, AChangeIsShownOnceAndOnlyWhenItIsOne) {
  Button button(form, "btnOK");
  int shown = 0;
  button.ViewChanged = [&shown] { ++shown; };
  button.Enabled = false;
  button.Enabled = false;
  button.Caption = "&OK";
  EXPECT_EQ(shown, 2);
}

TEST_F(ControlsTest, SettingATextRaisesChangeAsTypingDoes) {
  TextBox box(form, "txtName");
  std::string seen;
  box.Change = [&] { seen += box.Text() + ";"; };
  box.KeyPressed = [](KeyPress& press) { press.Handled = press.Character == 'x'; };
  box.MaxLength = 4;
  box.Text = "ab";
  box.Text = "ab";
  box.Select(1, 9);
  EXPECT_EQ(box.SelText(), "b");
  box.UserType("xyzzzz");
  EXPECT_EQ(seen, "ab;ay;ayz;ayzz;");
  box.Text = "q";
  EXPECT_EQ(box.SelStart(), 1);
  box.Locked = true;
  box.UserType("r");
  EXPECT_EQ(box.Text(), "q");
}

TEST_F(ControlsTest, AMaskIsFilledAsPeopleType) {
  for (const auto& [mask, before, keys, after] : Cases("controls/MaskTyping")) {
    MaskedEdit edit(form, "inputStarting");
    edit.Mask = mask;
    edit.Text = before;
    edit.SetFocus();
    int changes = 0;
    edit.Change = [&] { ++changes; };
    for (const char key : keys.substr(0, keys.find('|'))) {
      const int last = std::max(0, edit.SelStart() - 1);
      if (key != '<')
        edit.UserType({key});
      else if (edit.SelLength() > 0)
        edit.UserReplace(edit.SelStart(), edit.SelLength(), "");
      else
        edit.UserReplace(last, edit.SelStart() - last, "");
      EXPECT_LE(std::exchange(changes, 0), 1) << keys;
    }
    if (keys.find('|') != keys.npos) edit.UserPaste(keys.substr(keys.find('|') + 1));
    EXPECT_EQ(edit.Text(), after) << mask << ' ' << keys;
  }
}

TEST_F(ControlsTest, AMaskedFieldIsSelectedWhenItIsEnteredOrFilledAndKnowsYearsOfTwoDigits) {
  TextBox other(form, "txtName");
  MaskedEdit edit(form, "inputStarting");
  edit.Mask = "##/##/####";
  edit.Text = "10/05/1998";
  edit.SetFocus();
  EXPECT_EQ(edit.SelLength(), 10);
  edit.Change = [&] {
    if (edit.Text() == "01/01/1990") edit.Text = "10/05/1998";  // as a date out of range is put back
  };
  edit.UserType("01011990");
  EXPECT_EQ(edit.SelText(), "10/05/1998") << "to be typed over at once";
  for (const auto& [typed, left] : {std::pair{"1/5/98", "01/05/1998"},
                                    {"1/5/05", "01/05/2005"},
                                    {"1/5/19", "01/05/19__"},
                                    {"1", "1_/__/____"}}) {
    edit.SetFocus();
    edit.UserType(typed);
    other.SetFocus();
    EXPECT_EQ(edit.Text(), left);
  }
}

TEST_F(ControlsTest, ChecksAndOptionsClickOnceHoweverTheyAreSet) {
  CheckBox check(form, "optTips");
  OptionButton first(form, "optFormat", 0), second(form, "optFormat", 1), stranger(form, "optOther", 0);
  for (Control* control : form.Controls()) control->Click = [this] { ++clicks; };
  check.Value = true;
  check.UserClick();
  EXPECT_FALSE(check.Value);
  EXPECT_EQ(clicks, 2);
  stranger.Value = true;
  first.Value = true;
  second.UserClick();
  EXPECT_EQ(clicks, 5);
  EXPECT_FALSE(first.Value);
  EXPECT_TRUE(second.Value);
  EXPECT_TRUE(stranger.Value);
}

TEST_F(ControlsTest, NothingHappensToWhatIsHiddenOrDisabled) {
  Button button(form, "btnOK");
  Timer timer(form, "Timer1", 5000);
  Toolbar bar(form, "ToolbarMain", {"", "Setup"});
  button.Click = timer.Elapsed = [this] { ++clicks; };
  bar.ButtonClick = [this](const std::string&) { ++clicks; };
  button.Enabled = timer.Enabled = false;
  bar.Button("Setup").Enabled = false;
  button.UserClick();
  timer.Tick();
  bar.UserButtonClick("Setup");
  button.Enabled = true;
  button.Visible = false;
  button.UserClick();
  EXPECT_EQ(clicks, 0);
}

TEST_F(ControlsTest, APickOnlyListTakesOnlyTextsThatItHolds) {
  ComboBox list(form, "lstUnit", ComboBox::Kind::PickOnly);
  list.Click = [this] { ++clicks; };
  for (const char* text : {"Per Minute", "Per Second", "Per Unit"}) list.AddItem(text);
  list.SetText("PER UNIT");
  EXPECT_EQ(list.Text(), "Per Unit");
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_THROW(list.SetText("Per Day"), RunTimeError);
  list.AddItem("Per Call", 0);
  EXPECT_EQ(list.ListIndex(), 3);
  list.UserChoose(1);
  EXPECT_EQ(list.Text(), "Per Minute");
  EXPECT_EQ(clicks, 2);
  list.SetText("");
  EXPECT_EQ(list.ListIndex(), -1);

  ComboBox free(form, "lstDescription", ComboBox::Kind::Editable);
  free.AddItem("Standard Tariff");
  free.UserText("My Tariff");
  EXPECT_EQ(free.ListIndex(), -1);
  free.SetText("standard tariff");
  EXPECT_EQ(free.ListIndex(), 0);
}

TEST_F(ControlsTest, RowsKeepTheirSelectionWhenOthersGo) {
  ListView view(form, "ListView1");
  view.SetColumns({{""}, {"Service"}, {"Number"}});
  for (const char* name : {"a", "b", "c"}) view.AddRow({"", {name}});
  view.UserSelect(2);
  view.RemoveRow(1);
  EXPECT_EQ(view.SelectedRow(), 1);
  EXPECT_EQ(view.Cell(1, 2), "b");
  EXPECT_EQ(view.Cell(1, 3), "");
  view.RemoveRow(1);
  EXPECT_EQ(view.SelectedRow(), 0);
  EXPECT_THROW(view.SelectRow(2), RunTimeError);
}

TEST_F(ControlsTest, ACalendarStaysInsideTheMonth) {
  Calendar calendar(form, "Calendar1");
  std::string events;
  calendar.AfterUpdate = [&events] { events += "update "; };
  calendar.Click = [&events] { events += "click "; };
  calendar.UserPick(DateSerial(1999, 1, 31));
  calendar.NextMonth();
  EXPECT_EQ(calendar.Value, DateSerial(1999, 2, 28));
  calendar.UserPick(DateSerial(1999, 3, 1), false);
  EXPECT_EQ(events, "update click update ");
}

}  // namespace qel
