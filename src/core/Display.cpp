#include "core/Display.h"

namespace qel {

namespace {

Display nobody;
Display* current = &nobody;

}  // namespace

Display::~Display() {
  if (current == this) current = &nobody;
}

Display& CurrentDisplay() { return *current; }
void SetDisplay(Display& display) { current = &display; }

}  // namespace qel
