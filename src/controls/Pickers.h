// Controls that pick a value by steps: the calendar and the up-down button.
#pragma once

#include "controls/Control.h"
#include "values/Calendar.h"

namespace qel {

class Calendar : public Control {
 public:
  using Control::Control;
  Property<Date> Value{Shown()};  // a whole day

  // The same day of the month beside, limited to that month's last day; years and weeks likewise.
  void NextMonth() { Value = AddMonths(Value, 1); }
  void PreviousMonth() { Value = AddMonths(Value, -1); }
  void NextWeek() { Value = Value + 7; }
  void PreviousWeek() { Value = Value - 7; }
  void NextDay() { Value = Value + 1; }

  Event<> AfterUpdate;  // the user has picked a day; Click follows

  // The user picks a day with the mouse, or moves to it with the keys (no click then).
  void UserPick(Date day, bool byMouse = true);
};

class UpDown : public Control {
 public:
  using Control::Control;
  Event<> UpClick, DownClick;

  void UserUp() {
    if (Usable()) UpClick();
  }
  void UserDown() {
    if (Usable()) DownClick();
  }

 private:
  bool TakesFocus() const override { return false; }
};

}  // namespace qel
