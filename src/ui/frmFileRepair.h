// The progress of a log's repair, which runs as soon as the window is there.
#pragma once

#include <string>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "core/Display.h"
#include "ui/Windows.h"

namespace qel {

class frmFileRepair : public Window, private Display {
 public:
  explicit frmFileRepair(Windows& owner);

  Label lblFileRepair{*this, "lblFileRepair"};
  qel::ProgressBar ProgressBar{*this, "ProgressBar"};
  Button btnOK{*this, "btnOK", [this] { Unload(); }};

 private:
  void Form_Load() override { btnOK.Enabled = false; }
  void Form_Activate() override;
  // Stays until the repair is done.
  bool Form_Unload() override { return !running; }
  void StatusText(const std::string& text) override { lblFileRepair.Caption = text; }
  void Progress(Int16 percent) override { ProgressBar.SetValue(percent); }
  [[noreturn]] void RepairFailure(const std::string& reason);

  bool running = false;
};

}  // namespace qel
