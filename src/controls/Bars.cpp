#include "controls/Bars.h"

#include <utility>

#include "values/RunTimeError.h"

namespace qel {

Toolbar::Toolbar(Surface surface, std::string name, std::initializer_list<const char*> keys)
    : Control(surface, std::move(name)) {
  for (const char* key : keys) buttons.emplace_back([this] { ShowChange(); }, key);
}

ToolButton& Toolbar::Button(int position) {
  if (position < 1 || position > static_cast<int>(buttons.size())) Raise(SubscriptOutOfRange);
  return buttons[static_cast<std::size_t>(position - 1)];
}

ToolButton& Toolbar::Button(const std::string& key) {
  for (auto& button : buttons)
    if (button.Key == key) return button;
  Raise(SubscriptOutOfRange);
}

void Toolbar::UserButtonClick(const std::string& key) {
  const ToolButton& button = Button(key);
  if (Usable() && button.Visible && button.Enabled && !button.IsSeparator()) ButtonClick(key);
}

void StatusBar::SetPanelCount(int count) {
  panels.resize(static_cast<std::size_t>(count > 1 ? count : 1));
  ShowChange();
}

void StatusBar::SetPanel(int panel, const std::string& text) {
  if (panel < 1 || panel > static_cast<int>(panels.size())) Raise(SubscriptOutOfRange);
  panels[static_cast<std::size_t>(panel - 1)] = text;
  ShowChange();
}

void ProgressBar::SetValue(int wanted) {
  if (wanted < Min || wanted > Max) Raise(InvalidCall);
  value = wanted;
  ShowChange();
}

void TabStrip::SetTabs(std::vector<Tab> wanted) {
  tabs = std::move(wanted);
  selected = 1;
  ShowChange();
}

void TabStrip::SelectTab(int tab) {
  if (tab < 1 || tab > static_cast<int>(tabs.size())) Raise(SubscriptOutOfRange);
  selected = tab;
  ShowChange();
  Click();
}

void TabStrip::SelectNextTab() {
  if (!tabs.empty()) SelectTab(selected % static_cast<int>(tabs.size()) + 1);
}

void TabStrip::SelectPreviousTab() {
  if (!tabs.empty()) SelectTab(selected > 1 ? selected - 1 : static_cast<int>(tabs.size()));
}

void TabStrip::UserSelectTab(int tab) {
  if (!Usable() || tab == selected) return;
  SetFocus();
  if (CanHaveFocus() && !HasFocus()) return;
  SelectTab(tab);
}

}  // namespace qel
