#include "controls/TextControls.h"

#include <algorithm>
#include <utility>

#include "controls/MaskEntry.h"

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

void TextBox::TakeText() {
  const bool byUser = std::exchange(typing, false);  // what Change makes of it is the program's
  ++edition;
  ShowChange();
  byUser ? Select(selStart, selLength) : SelectAnew();
  Change();
}

void TextBox::TakeTyping(const std::string& whole, int insertion) {
  selStart = insertion;
  selLength = 0;
  typing = true;
  Text = whole;
  if (std::exchange(typing, false)) ShowChange();  // nothing but the insertion point has moved
}

void TextBox::ReplaceSelection(const std::string& text) {
  std::string whole = Text;
  whole.replace(static_cast<std::size_t>(selStart), static_cast<std::size_t>(selLength), text);
  TakeTyping(whole, selStart + static_cast<int>(text.size()));
}

void TextBox::UserReplace(int start, int length, const std::string& text) {
  Select(start, length);
  ReplaceSelection(text);
}

void TextBox::UserPaste(const std::string& text) {
  if (Usable() && !Locked && !text.empty()) UserReplace(selStart, selLength, text);
}

void TextBox::UserType(const std::string& characters) {
  for (const char c : characters) {
    if (!Usable() || Locked) return;
    KeyPress press{.Character = c};
    KeyPressed(press);
    const bool full = MaxLength > 0 && selLength == 0 && static_cast<int>(Text().size()) >= MaxLength;
    if (!press.Handled && !full) UserReplace(selStart, selLength, std::string(1, press.Character));
  }
}

void TextBox::UserText(const std::string& text) {
  if (!Usable() || Locked) return;
  SetFocus();
  if (HasFocus()) Text = text;
}

bool MaskedEdit::Fits(const std::string& text) const {
  return Mask().empty() || MaskEntry(Mask, text).IsWhole();
}

void MaskedEdit::SelectAnew() { HasFocus() ? SelectAll() : TextBox::SelectAnew(); }

// A text that was pasted may mean a whole one; else it comes character by character, as a typed one does.
// What fits nowhere changes nothing.
void MaskedEdit::UserReplace(int start, int length, const std::string& text) {
  MaskEntry entry(Mask, Text);
  if (Mask().empty() || !entry.HasShape()) return TextBox::UserReplace(start, length, text);
  if (const std::string whole = Understood(text); !whole.empty())
    return TakeTyping(whole, static_cast<int>(whole.size()));
  const bool backward = start < SelStart();
  if (entry.Replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), text, backward))
    TakeTyping(entry.Text(), static_cast<int>(entry.Insertion()));
}

void MaskedEdit::TakeExit() {
  MaskEntry entry(Mask, Text);
  entry.CompleteYear();
  if (!Text().empty()) Text = entry.Text();
}

std::string MaskedEdit::Understood(const std::string& pasted) const {
  if (pasted.size() < 2) return "";
  constexpr char Blanks[] = " \t\r\n";
  const auto begin = std::min(pasted.find_first_not_of(Blanks), pasted.size());
  const std::string text = pasted.substr(begin, pasted.find_last_not_of(Blanks) + 1 - begin);
  if (Fits(text)) return text;
  return Understands ? Understands(text) : "";
}

void Document::UserLink(const std::string& target) {
  if (Usable()) LinkClick(target);
}

}  // namespace qel
