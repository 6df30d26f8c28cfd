#include "controls/Control.h"

#include <utility>

#include "controls/Form.h"

namespace qel {

Surface::Surface(Control& frame) : Owner(frame.Parent()), Frame(&frame) {}

Control::Control(Surface surface, std::string name, int index)
    : form(surface.Owner), frame(surface.Frame), name(std::move(name)), index(index) {
  form.Join(*this);
}

Control::Control(Surface surface, std::string name, Event<>::Handler click)
    : Control(surface, std::move(name)) {
  Click = std::move(click);
}

Control::~Control() { form.Leave(*this); }

void Control::SetFocus() { form.MoveFocusTo(*this); }

bool Control::HasFocus() const { return form.ActiveControl() == this; }

void Control::UserClick() {
  if (!Usable()) return;
  if (ClickMovesFocus) SetFocus();
  // A field that holds the focus keeps the click from happening elsewhere, and one that was left may have
  // disabled what was clicked.
  if (!Usable() || (ClickMovesFocus && CanHaveFocus() && !HasFocus())) return;
  TakeClick();
  Click();
}

void Control::UserDblClick() {
  if (Usable()) DblClick();
}

void Control::UserKey(KeyPress& press) {
  if (!Usable()) return;
  KeyDown(press);
  if (!press.Handled && Usable()) TakeKey(press);
}

}  // namespace qel
