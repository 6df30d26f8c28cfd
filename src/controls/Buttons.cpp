#include "controls/Buttons.h"

#include "controls/Form.h"

namespace qel {

void OptionButton::TakeValue() {
  if (!Value) return;
  for (Control* control : Parent().Controls())
    if (control != this && control->Name() == Name())
      if (auto* other = dynamic_cast<OptionButton*>(control)) other->Value = false;
  if (!clicking) Click();
}

}  // namespace qel
