#include "controls/Pickers.h"

namespace qel {

void Calendar::UserPick(Date day, bool byMouse) {
  if (!Usable()) return;
  SetFocus();
  if (CanHaveFocus() && !HasFocus()) return;
  Value = WholeDay(day);
  AfterUpdate();
  if (byMouse) Click();
}

}  // namespace qel
