// Search in the viewer's text.
#pragma once

#include <array>

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "ui/Windows.h"

namespace qel {

class frmFind : public Window {
 public:
  explicit frmFind(Windows& owner);

  TextBox Text1{*this, "Text1"};
  Frame fraDirection{*this, "fraDirection"};
  std::array<OptionButton, 2> optDirection{{{*this, "optDirection", 0}, {*this, "optDirection", 1}}};
  CheckBox chkCase{*this, "chkCase"};
  Button cmdFind{*this, "cmdFind"};
  Button cmdcancel{*this, "cmdcancel"};

 private:
  void Form_Load() override;
};

// Searches the viewer's text for FindText from its selection on and selects what it finds; the dialogue goes
// then. Without a hit the user is told.
void DoFind(Windows& windows);

}  // namespace qel
