#include "core/Display.h"

namespace qel {

namespace {

Display nobody;
Display* current = &nobody;

}  // namespace

Display& CurrentDisplay() { return *current; }
void SetDisplay(Display& display) { current = &display; }

}  // namespace qel
