#include "controls/Lists.h"

#include "values/CodePage.h"
#include "values/RunTimeError.h"

namespace qel {

void ListBox::AddItem(const std::string& text, int before) {
  if (before < -1 || before > ListCount()) Raise(InvalidCall);
  items.insert(before == -1 ? items.end() : items.begin() + before, text);
  if (before != -1 && listIndex >= before) ++listIndex;
  ShowChange();
}

void ListBox::AddItems(const std::vector<std::string>& texts) {
  for (const auto& text : texts) AddItem(text);
}

void ListBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) Raise(InvalidCall);
  items.erase(items.begin() + index);
  if (listIndex == index)
    listIndex = -1;
  else if (listIndex > index)
    --listIndex;
  ShowChange();
}

void ListBox::Clear() {
  items.clear();
  listIndex = -1;
  ShowChange();
}

void ListBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) Raise(InvalidCall);
  if (index == listIndex) return;
  Choose(index);
  if (index >= 0) Click();
}

void ListBox::UserChoose(int index) {
  if (!Usable() || index < 0 || index >= ListCount()) return;
  SetFocus();
  if (CanHaveFocus() && !HasFocus()) return;
  Choose(index);
  Click();
}

void ListBox::Choose(int index) {
  listIndex = index;
  ShowChange();
}

int ListBox::IndexOf(const std::string& text) const {
  for (int i = 0; i < ListCount(); ++i)
    if (EqualNoCase(items[static_cast<std::size_t>(i)], text)) return i;
  return -1;
}

void ComboBox::SetText(const std::string& wanted) {
  if (IsPickOnly()) {
    const int index = IndexOf(wanted);
    if (index < 0 && !wanted.empty()) Raise(InvalidCall);
    return SetListIndex(index);
  }
  if (wanted == text) return;
  ListBox::Choose(IndexOf(wanted));
  text = wanted;
  TextSelected = false;
  ShowChange();
  Change();
}

void ComboBox::Clear() {
  text.clear();
  ListBox::Clear();
}

void ComboBox::UserText(const std::string& typed) {
  if (Usable() && !IsPickOnly()) SetText(typed);
}

void ComboBox::Choose(int index) {
  text = index < 0 ? "" : Items()[static_cast<std::size_t>(index)];
  ListBox::Choose(index);
}

}  // namespace qel
