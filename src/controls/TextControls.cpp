#include "controls/TextControls.h"

#include <algorithm>

namespace qel {

void TextBox::Select(int start, int length) {
  const int end = static_cast<int>(Text().size());
  selStart = std::clamp(start, 0, end);
  selLength = std::clamp(length, 0, end - selStart);
  ShowChange();
}

std::string TextBox::SelText() const {
  return Text().substr(static_cast<std::size_t>(selStart), static_cast<std::size_t>(selLength));
}

void TextBox::ReplaceSelection(const std::string& text) {
  std::string whole = Text;
  whole.replace(static_cast<std::size_t>(selStart), static_cast<std::size_t>(selLength), text);
  selStart += static_cast<int>(text.size());
  selLength = 0;
  Text = whole;
}

void TextBox::UserType(const std::string& characters) {
  for (const char c : characters) {
    if (!Usable() || Locked) return;
    KeyPress press{.Character = c};
    KeyPressed(press);
    const bool full = MaxLength > 0 && selLength == 0 && static_cast<int>(Text().size()) >= MaxLength;
    if (!press.Handled && !full) ReplaceSelection(std::string(1, press.Character));
  }
}

void TextBox::UserText(const std::string& text) {
  if (!Usable() || Locked) return;
  SetFocus();
  if (HasFocus()) Text = text;
}

bool MaskedEdit::Fits(const std::string& text) const {
  if (Mask().empty()) return true;
  if (text.size() != Mask().size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool digit = c >= '0' && c <= '9';
    const bool letter =
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0xC0;
    const char place = Mask()[i];
    const bool fits = place == '#' ? digit : place == 'A' ? digit || letter : c == place;
    if (!fits) return false;
  }
  return true;
}

void Document::UserLink(const std::string& target) {
  if (Usable()) LinkClick(target);
}

}  // namespace qel
