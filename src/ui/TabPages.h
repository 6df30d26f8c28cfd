// Windows whose controls are spread over the tabs of a strip: one frame for each tab, of which only the
// selected one is to be seen and used.
#pragma once

#include <span>

#include "controls/Bars.h"
#include "controls/Buttons.h"

namespace qel {

// Brings the page of the selected tab to the front.
void ShowSelectedPage(const TabStrip& strip, std::span<Frame> pages);

// Ctrl with Tab selects the next tab, after the last one the first, unless a field keeps the focus; with
// Shift the one before. Answers whether it was that key.
bool SelectNextTabByKey(TabStrip& strip, KeyPress& press);

}  // namespace qel
