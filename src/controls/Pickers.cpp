#include "controls/Pickers.h"

namespace qel {

void Calendar::UserPick(Date day, bool byMouse) {
  if (!Usable()) return;
  if (ClickMovesFocus || !byMouse) SetFocus();
  if (ClickMovesFocus && CanHaveFocus() && !HasFocus()) return;
  Value = WholeDay(day);
  AfterUpdate();
  if (byMouse) Click();
}

}  // namespace qel
