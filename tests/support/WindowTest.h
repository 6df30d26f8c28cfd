// A fixture for the windows as models: a program without windows yet, and a log in a folder of its own.
#pragma once

#include "support/FreshProgram.h"
#include "ui/frmAbout.h"
#include "ui/frmFileRepair.h"
#include "ui/frmFind.h"
#include "ui/frmMain.h"
#include "ui/frmPurge.h"
#include "ui/frmReport.h"
#include "ui/frmSplash.h"
#include "ui/frmViewLog.h"

namespace qel {

class WindowTest : public FreshProgram {
 protected:
  WindowTest() { AppPath = folder.Path(); }
  ~WindowTest() override { ResetWindows(); }

  static void ResetWindows() {
    AboutForm.Reset();
    FileRepairForm.Reset();
    PurgeForm.Reset();
    FindForm.Reset();
    ViewLogForm.Reset();
    ViewerOpen = false;
    ReportForm.Reset();
    SplashForm.Reset();
    MainForm.Reset();
  }

  // One entry on each of two days: a log from the first to the second.
  static std::string LogOf(const std::string& first, const std::string& last) {
    return first + " 10:00:00.00 - Modem type: Sample\r\n" + last + " 10:00:00.00 - Modem type: Sample\r\n";
  }

  // Makes `text` the default log and looks into it as the start does.
  void DefaultLog(const std::string& text) {
    folder.Put("ModemLog.txt", text);
    SetCurrentLog(folder.Path() + "/", "ModemLog.txt");
    LogExists = true;
    LogCorrupt = CheckCorruption(false);
    if (!LogCorrupt) GetLogStats(false);
  }

  std::string Status() const { return MainForm->StatusBarMain.Text(); }
};

}  // namespace qel
