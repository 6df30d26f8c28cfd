#include "ui/TabPages.h"

namespace qel {

void ShowSelectedPage(const TabStrip& strip, std::span<Frame> pages) {
  const auto selected = static_cast<std::size_t>(strip.SelectedTab() - 1);
  for (std::size_t i = 0; i < pages.size(); ++i) pages[i].Visible = pages[i].Enabled = i == selected;
}

bool SelectNextTabByKey(TabStrip& strip, KeyPress& press) {
  if (press.Character != '\t' || !press.Control) return false;
  press.Handled = true;
  strip.SetFocus();
  if (strip.HasFocus()) press.Shift ? strip.SelectPreviousTab() : strip.SelectNextTab();
  return true;
}

}  // namespace qel
