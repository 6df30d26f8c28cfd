#include "ui/FieldRule.h"

#include <cmath>

#include "controls/Form.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {

void Refuse(Control& control, const std::string& reason) {
  CurrentHost().Beep();
  control.Refusal = "";  // the same reason is said anew
  control.Refusal = reason;
}

void RefuseAndStay(Control& control, const std::string& reason) {
  Refuse(control, reason);
  if (control.Parent().Visible()) control.SetFocus();
}

void EnableField(Control& field, bool enabled) {
  field.Enabled = enabled;
  field.BackColor = enabled ? SystemColour::WindowBackground : SystemColour::MenuBackground;
}

void GreyText(Control& control, bool grey) {
  control.ForeColor = grey ? SystemColour::GreyText : SystemColour::WindowText;
}

std::string MoneyField(const std::string& text) { return Format_Dplaces(text, MoneyPlaces); }
std::string MoneyField(double amount) { return MoneyField(NumberText(amount)); }

RuledField::RuledField(TextBox& field, FieldRule rule) : field(field), rule(rule) {
  field.Change = [this] { Change(); };
  field.LostFocus = [this] { Leave(); };
}

void RuledField::Change() {
  field.Refusal = "";
  if (rule.Shortened && Shorten()) return;
  if (rule.TestsTyping) Test();
  if (Changed) Changed();
}

// The shorter text is a change of its own.
bool RuledField::Shorten() {
  const std::string shorter = rule.Shortened(field.Text);
  if (shorter == field.Text()) return false;
  field.Text = shorter;
  field.Select(static_cast<int>(shorter.size()), 0);
  if (field.Refusal().empty()) RefuseAndStay(field, Reason());  // unless the shorter one was refused too
  return true;
}

void RuledField::Test() {
  const std::string& text = field.Text;
  if (text.empty() && rule.WhenEmptied != Emptied::IsRefused) {
    if (rule.WhenEmptied == Emptied::Invalidates) valid = false;
    return;
  }
  valid = Passes() || (rule.Unfinished && text.ends_with(*rule.Unfinished));
  if (!valid) RefuseAndStay(field, Reason());
}

void RuledField::Leave() {
  const std::string typed = field.Text;
  const bool putsBack = rule.WhenLeft == Leaving::PutsBack;
  const bool fills = rule.WhenLeft == Leaving::Resets ? !IsNumber(typed) : typed.empty() && !putsBack;
  if (fills && *rule.Filler) field.Text = rule.Filler;
  if (putsBack || rule.WhenLeft == Leaving::Insists) valid = Passes();
  if (valid) {
    field.Refusal = "";
    field.Text = Shown();
    if (Taken) Taken(typed);
  } else if (putsBack) {
    field.Text = Former ? Former() : rule.Filler;
    Refuse(field, Reason());
  } else if (rule.WhenLeft == Leaving::Insists) {
    RefuseAndStay(field, Reason());
  }
  if (Left) Left();
}

bool RuledField::Passes() const {
  if (!IsNumber(field.Text())) return false;
  const double value = Val(field.Text());
  return !(value < rule.Least.value_or(value)) && !(value > rule.Most.value_or(value));
}

// A text that is valid and no number has just been begun; it stands.
std::string RuledField::Shown() const {
  if (!IsNumber(field.Text())) return field.Text;
  if (!rule.Mask) return MoneyField(field.Text());
  if (!*rule.Mask) return field.Text;
  const double value = TextToNumber(field.Text());
  return FormatNumber(rule.WholePart ? std::trunc(value) : value, rule.Mask);
}

std::string RuledField::Reason() const {
  const std::string most = rule.Most ? NumberText(*rule.Most) : "";
  if (rule.Least && rule.Most) return "Enter a number from " + NumberText(*rule.Least) + " to " + most + ".";
  if (rule.Most) return "Enter a number up to " + most + ".";
  return rule.Mask ? "Enter a number." : "Enter an amount.";
}

}  // namespace qel
