#include "ui/frmFileRepair.h"

#include <new>

#include "core/EndProgram.h"
#include "core/ProgramState.h"
#include "maintenance/Repair.h"
#include "platform/Host.h"
#include "ui/HelpContexts.h"

namespace qel {

TheForm<frmFileRepair> FileRepairForm;

frmFileRepair::frmFileRepair() : Form("frmFileRepair") {
  HelpContextID = HelpRepair;
  btnOK.Click = [this] { Unload(); };
}

void frmFileRepair::Form_Activate() {
  if (running || btnOK.Enabled) return;  // once
  running = true;
  CurrentHost().Yield();
  try {
    LogRepair repair([this](const std::string& text, Int16 percent) { Tell(text, percent); });
    repair.FixCorruption();
    repair.CheckEntries();
  } catch (const RunTimeError&) {
    RepairFailure();
  } catch (const std::bad_alloc&) {
    RepairFailure();
  }
  CurrentHost().Beep();
  LogCorrupt = false;
  lblFileRepair.Caption = "Modem File Successfully Repaired!";
  btnOK.Enabled = true;
  running = false;
}

void frmFileRepair::Tell(const std::string& text, Int16 percent) {
  lblFileRepair.Caption = text;
  if (percent < 101) ProgressBar.SetValue(percent);
  CurrentHost().Yield();
}

void frmFileRepair::RepairFailure() {
  running = false;
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
  CurrentHost().SetMousePointer(MousePointer::Default);
  EndProgram();
}

}  // namespace qel
