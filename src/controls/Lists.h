// Lists of texts: the list box, and the list that drops down from a field.
#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace qel {

// Entries and the chosen one. Setting ListIndex by program raises Click as the user's choice does.
class ListBox : public Control {
 public:
  using Control::Control;

  const std::vector<std::string>& Items() const { return items; }
  int ListCount() const { return static_cast<int>(items.size()); }
  // Adds at the end, or before an entry. Raises 5 for a place that is none.
  void AddItem(const std::string& text, int before = -1);
  void AddItems(const std::vector<std::string>& texts);
  // Raises 5 for an entry that is none. What was chosen stays chosen unless it goes.
  void RemoveItem(int index);
  virtual void Clear();

  // Counted from 0; -1 for none.
  int ListIndex() const { return listIndex; }
  // Raises 5 for an entry that is none.
  void SetListIndex(int index);

  // The user chooses an entry.
  void UserChoose(int index);

 protected:
  // Moves the choice; derived lists keep their text in step.
  virtual void Choose(int index);
  int IndexOf(const std::string& text) const;  // without regard to case; -1 where there is none

 private:
  std::vector<std::string> items;
  int listIndex = -1;
};

// A field with a list that drops down. A pick-only one takes only texts that its list holds: setting Text
// chooses the entry equal to it without regard to case. An editable one takes any text.
class ComboBox : public ListBox {
 public:
  enum class Kind { PickOnly, Editable };

  ComboBox(Surface surface, std::string name, Kind kind) : ListBox(surface, std::move(name)), kind(kind) {}

  bool IsPickOnly() const { return kind == Kind::PickOnly; }
  const std::string& Text() const { return text; }
  // Raises 5 for a text that a pick-only list does not hold; an empty one chooses nothing.
  void SetText(const std::string& wanted);
  void Clear() override;
  bool SelectsOnTab = true;  // the tab key that leads to an editable list selects its text
  // Whether the text of an editable list is selected, so that typing replaces it; until the text changes.
  Property<bool> TextSelected{Shown()};

  // The user typed into an editable field.
  Event<> Change;
  void UserText(const std::string& typed);

 private:
  void Choose(int index) override;

  const Kind kind;
  std::string text;
};

}  // namespace qel
