// Bars and strips: tool bar, status bar, progress bar, tabs.
#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "controls/Control.h"

namespace qel {

// One button of a tool bar. Separators have a place and no key.
class ToolButton {
 public:
  ToolButton(std::function<void()> shown, std::string key)
      : Key(std::move(key)), Enabled(shown, true), Visible(shown, true), Pressed(shown), ToolTipText(shown) {}
  const std::string Key;
  Property<bool> Enabled, Visible, Pressed;
  Property<std::string> ToolTipText;
  bool IsSeparator() const { return Key.empty(); }
};

// Buttons by position, counted from 1, or by key. A click raises ButtonClick with the key.
class Toolbar : public Control {
 public:
  // The keys by position; an empty one is a separator.
  Toolbar(Surface surface, std::string name, std::initializer_list<const char*> keys);

  Property<bool> Flat{Shown()};  // buttons without edges
  std::deque<ToolButton>& Buttons() { return buttons; }
  // Raise 9 where there is no such button.
  ToolButton& Button(int position);
  ToolButton& Button(const std::string& key);

  Event<const std::string&> ButtonClick;
  void UserButtonClick(const std::string& key);

 private:
  bool TakesFocus() const override { return false; }
  std::deque<ToolButton> buttons;  // a deque: buttons stay where they are
};

// Panels of text, counted from 1; the first is there from the start.
class StatusBar : public Control {
 public:
  using Control::Control;
  const std::vector<std::string>& Panels() const { return panels; }
  void SetPanelCount(int count);
  // Raises 9 for a panel that is none.
  void SetPanel(int panel, const std::string& text);
  const std::string& Text() const { return panels.front(); }
  void SetText(const std::string& text) { SetPanel(1, text); }

 private:
  bool TakesFocus() const override { return false; }
  std::vector<std::string> panels{""};
};

// From Min to Max; a value outside raises 5.
class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<int> Min{Shown(), 0}, Max{Shown(), 100};
  int Value() const { return value; }
  void SetValue(int wanted);

 private:
  bool TakesFocus() const override { return false; }
  int value = 0;
};

struct Tab {
  std::string Caption;
  std::string ToolTipText;
};

// Tabs counted from 1. Selecting one, by program too, raises Click.
class TabStrip : public Control {
 public:
  using Control::Control;
  const std::vector<Tab>& Tabs() const { return tabs; }
  void SetTabs(std::vector<Tab> wanted);
  int SelectedTab() const { return selected; }
  void SelectTab(int tab);   // raises 9 for a tab that is none
  void SelectNextTab();      // after the last comes the first
  void SelectPreviousTab();  // before the first stands the last
  void UserSelectTab(int tab);

 private:
  std::vector<Tab> tabs;
  int selected = 1;
};

}  // namespace qel
