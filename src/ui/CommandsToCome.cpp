#include "ui/CommandsToCome.h"

#include "ui/frmMain.h"

namespace qel {

CommandsToCome CommandsToComeOf(frmMain& window) {
  Toolbar& bar = window.ToolbarMain;
  return {{&window.mnuSetup, &window.mnuViewLog, &window.btnViewLog, &window.mnuClearLog, &window.mnuPurgeLog,
           &window.mnuOptimize, &window.mnuRepairLog, &window.mnuModemWizard, &window.mnuTopics,
           &window.mnuReadme, &window.mnsSearchHelp, &window.mnuHowToHelp},
          {&bar.Button("Setup"), &bar.Button("View Modem Log"), &bar.Button("Clear Modem Log"),
           &bar.Button("Optimize Modem Log"), &bar.Button("Repair Modem Log"), &bar.Button("Help"),
           &bar.Button("Search Help")}};
}

void WithholdCommandsToCome(frmMain& window) {
  const CommandsToCome commands = CommandsToComeOf(window);
  for (Control* control : commands.Controls) control->Enabled = false;
  for (ToolButton* button : commands.Buttons) button->Enabled = false;
}

}  // namespace qel
