#include "ui/frmFileRepair.h"

#include "core/Surroundings.h"
#include "maintenance/Repair.h"
#include "ui/HelpNumbers.h"

namespace qel {

frmFileRepair::frmFileRepair(Windows& owner) : Window("frmFileRepair", owner) { HelpContextID = HelpRepair; }

void frmFileRepair::Form_Activate() {
  if (running || btnOK.Enabled) return;  // once
  SetTrace("frmFileRepair", "Form_Activate");
  running = true;
  CurrentHost().Yield();
  const std::string reason = ReasonOfFailure([this] {
    const LogInHand log = session.InHand();
    LogRepair repair(log, *this);
    repair.FixCorruption();
    repair.CheckEntries();
  });
  if (!reason.empty()) RepairFailure(reason);
  CurrentHost().Beep();
  findings.LogCorrupt = false;
  lblFileRepair.Caption = "Modem File Successfully Repaired!";
  btnOK.Enabled = true;
  running = false;
}

// The window stays beside the message, which gives no reason.
void frmFileRepair::RepairFailure(const std::string& reason) {
  SetTrace("frmFileRepair", "RepairFailure");
  lblFileRepair.Caption = lblFileRepair.ToolTipText = reason;
  MsgBox(
      {"QEL was unable to repair your modem log file!\n"
       "\n"
       "There may be too much corruption in the file\n"
       "or the file may be locked by another process.\n"
       "\n"
       "If after re-booting your computer QEL still\n"
       "cannot repair your log file then you may be\n"
       "able to repair it manually yourself by using\n"
       "Wordpad to remove most of the corruption before\n"
       "trying again.\n"
       "\n"
       "QEL will now close.",
       "Repair Failure!"});
  CurrentHost().EndProgram();
}

}  // namespace qel
