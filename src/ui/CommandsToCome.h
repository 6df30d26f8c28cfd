// The one place that knows which documents are still to come: the help and the readme. Their commands are
// disabled here; frmTip disables its own help button.
#pragma once

#include <vector>

#include "controls/Bars.h"
#include "controls/Control.h"

namespace qel {

class frmMain;

struct CommandsToCome {
  std::vector<Control*> Controls;
  std::vector<ToolButton*> Buttons;
};

CommandsToCome CommandsToComeOf(frmMain& window);

// Disables them, whatever the state of the log would allow.
void WithholdCommandsToCome(frmMain& window);

}  // namespace qel
