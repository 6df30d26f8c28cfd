// A host whose user has the program's windows: they show how far work is and the help, and go when the
// program ends.
#pragma once

#include "core/Display.h"
#include "platform/Host.h"

namespace qel {

class WindowHost : public Host, public Display {
  Display& Front() override;
  void ShowHelp(int topic) override;
  void UnloadWindows() override;
};

}  // namespace qel
