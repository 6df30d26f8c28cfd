// What the program is, on which system it runs, and how to reach its author.
#pragma once

#include <array>

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "ui/Windows.h"

namespace qel {

class frmAbout : public Window {
 public:
  explicit frmAbout(Windows& owner);

  Picture imgAbout{*this, "imgAbout"};
  std::array<Label, 3> lblTitle{{{*this, "lblTitle", 0}, {*this, "lblTitle", 1}, {*this, "lblTitle", 2}}};
  Label lblVersion{*this, "lblVersion"};
  Label lblOS{*this, "lblOS"};
  Label lblCopyright{*this, "lblCopyright"};
  Label lblRights{*this, "lblRights"};
  Label lblWWW{*this, "lblWWW"};
  Label lblEmail{*this, "lblEmail"};
  Button cmdOK{*this, "cmdOK", [this] { Unload(); }};
  Button cmdSysInfo{*this, "cmdSysInfo", [this] { StartSysInfo(); }};

 private:
  void Form_Load() override;
  void Form_Activate() override;
  void PointAt(const Label* link);
  void StartSysInfo();
};

}  // namespace qel
