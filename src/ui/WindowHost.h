// A host whose user has the program's windows: they show how far work is and the help, and go when the
// program ends.
#pragma once

#include "core/Display.h"
#include "platform/Host.h"
#include "ui/Windows.h"

namespace qel {

class WindowHost : public Host, public Display {
 public:
  qel::Windows* Windows = nullptr;  // of the program that runs, if one does

 private:
  std::string SystemName() const override { return Windows ? Windows->session.places.OSName : ""; }
  Display& Front() override;
  void ShowHelp(int topic) override;
  void UnloadWindows() override;
};

}  // namespace qel
