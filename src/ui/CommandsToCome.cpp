#include "ui/CommandsToCome.h"

#include "ui/frmMain.h"

namespace qel {

CommandsToCome CommandsToComeOf(frmMain& window) {
  Toolbar& bar = window.ToolbarMain;
  return {{&window.mnuTopics, &window.mnuReadme, &window.mnsSearchHelp, &window.mnuHowToHelp},
          {&bar.Button("Help"), &bar.Button("Search Help")}};
}

void WithholdCommandsToCome(frmMain& window) {
  const CommandsToCome commands = CommandsToComeOf(window);
  for (Control* control : commands.Controls) control->Enabled = false;
  for (ToolButton* button : commands.Buttons) button->Enabled = false;
}

}  // namespace qel
