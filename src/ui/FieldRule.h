// Fields that take numbers. A field's rule says which texts it refuses while they are typed, what becomes of
// the text when the field is left, and in which form a number is shown then.
//
// A refusal beeps, and the field is marked and says why until it takes its text again.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/TextControls.h"

namespace qel {

// Beeps and marks the control with the reason.
void Refuse(Control& control, const std::string& reason);
// The field keeps the focus too.
void RefuseAndStay(Control& control, const std::string& reason);

// Lets a field be used or not, and shows it by its background.
void EnableField(Control& field, bool enabled);
// The text of what belongs to a field that cannot be used.
void GreyText(Control& control, bool grey = true);

// What a text in the making that is empty does to the validity of its field.
enum class Emptied { KeepsValidity, Invalidates, IsRefused };

// What happens to a text that is no number in range when its field is left.
enum class Leaving {
  Forgives,  // it stands; an empty one is filled in
  Resets,    // it becomes the Filler
  Insists,   // the focus stays; an empty one is filled in first, where there is a Filler
  PutsBack,  // it is refused, and the Former text or the Filler takes its place
};

struct FieldRule {
  // Limits of the leading number; a field without any takes what is a number.
  std::optional<double> Least = {}, Most = {};
  // The decimal symbol of an amount: a text that ends with it may be the beginning of one.
  const std::string* Unfinished = nullptr;
  Emptied WhenEmptied = Emptied::KeepsValidity;
  bool TestsTyping = true;  // else the text is looked at when the field is left
  // Cuts a text that must not even be typed down to one that may; such a text is refused and replaced.
  std::string (*Shortened)(const std::string& text) = nullptr;

  Leaving WhenLeft = Leaving::Forgives;
  const char* Filler = "0";  // empty: nothing is filled in
  // Of the number; without one it is an amount of up to four decimals, with an empty one the text stands.
  const char* Mask = nullptr;
  bool WholePart = false;  // the fraction is cut off, not rounded
};

// A field under its rule. It answers the field's Change and LostFocus.
class RuledField {
 public:
  RuledField(TextBox& field, FieldRule rule);

  // What else a change and leaving the field lead to; behind the rule.
  std::function<void()> Changed, Left;
  // What a valid text leads to when the field is left; as it was typed, while the field shows its form.
  std::function<void(const std::string& typed)> Taken;
  std::function<std::string()> Former;  // what PutsBack puts back

  TextBox& Field() const { return field; }
  // The last text that was tested passed. False before the first.
  bool Valid() const { return valid; }

  // What leaving the field does; the window runs it too, to bring its fields to their form.
  void Leave();

 private:
  void Change();
  bool Shorten();
  void Test();
  bool Passes() const;
  std::string Shown() const;
  std::string Reason() const;

  TextBox& field;
  const FieldRule rule;
  bool valid = false;
};

// The decimals that money fields keep.
inline constexpr int MoneyPlaces = 4;
// An amount as money fields show it; empty for a text that is no number.
std::string MoneyField(const std::string& text);
std::string MoneyField(double amount);

}  // namespace qel
