// A fixture for the windows as models: a program without windows yet, its settings and its log in a folder of
// their own.
#pragma once

#include <optional>

#include "support/FreshProgram.h"
#include "ui/frmAbout.h"
#include "ui/frmCompare.h"
#include "ui/frmFileRepair.h"
#include "ui/frmFind.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"
#include "ui/frmPreConfigure.h"
#include "ui/frmPrice.h"
#include "ui/frmPurge.h"
#include "ui/frmReport.h"
#include "ui/frmService.h"
#include "ui/frmSetup.h"
#include "ui/frmSplash.h"
#include "ui/frmTariff.h"
#include "ui/frmTip.h"
#include "ui/frmViewLog.h"

namespace qel {

class WindowTest : public FreshProgram {
 protected:
  WindowTest() {
    places.AppPath = folder.Path();
    places.HelpFile = folder.Path("QEL.HLP");
    session->TipShown = true;  // no test but its own has to close it
    setenv("QEL_HOME", folder.Path().c_str(), 1);
    setenv("WinDir", folder.Path().c_str(), 1);
  }
  ~WindowTest() override {
    unsetenv("QEL_HOME");
    unsetenv("WinDir");
  }

  // As a new process has it.
  Windows& NewProcess() {
    windows.reset();
    session.emplace();
    return windows.emplace(*session);
  }

  // One entry on each of two days: a log from the first to the second.
  static std::string LogOf(const std::string& first, const std::string& last) {
    return first + " 10:00:00.00 - Modem type: Sample\r\n" + last + " 10:00:00.00 - Modem type: Sample\r\n";
  }

  // Makes `text` the default log and looks into it as the start does.
  void DefaultLog(const std::string& text) {
    folder.Put("ModemLog.txt", text);
    session->SetCurrentLog(folder.Path() + "/", "ModemLog.txt");
    session->Examine(LogHealth::Unknown);
  }

  void Show(const std::string& log) {
    DefaultLog(log);
    windows->MainForm->Show();
  }

  std::string Log() const { return folder.Content("ModemLog.txt"); }

  std::optional<Windows> windows{std::in_place, *session};

  const std::string usable = LogOf("01-05-1999", "01-20-1999");
};

}  // namespace qel
