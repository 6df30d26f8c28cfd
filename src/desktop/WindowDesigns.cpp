#include "desktop/WindowDesigns.h"

#include <QDialog>
#include <QMainWindow>

#include "desktop/forms/ui_frmAbout.h"
#include "desktop/forms/ui_frmCompare.h"
#include "desktop/forms/ui_frmFileRepair.h"
#include "desktop/forms/ui_frmFind.h"
#include "desktop/forms/ui_frmHelp.h"
#include "desktop/forms/ui_frmMain.h"
#include "desktop/forms/ui_frmPreConfigure.h"
#include "desktop/forms/ui_frmPrice.h"
#include "desktop/forms/ui_frmPurge.h"
#include "desktop/forms/ui_frmReport.h"
#include "desktop/forms/ui_frmService.h"
#include "desktop/forms/ui_frmSetup.h"
#include "desktop/forms/ui_frmSplash.h"
#include "desktop/forms/ui_frmTariff.h"
#include "desktop/forms/ui_frmTip.h"
#include "desktop/forms/ui_frmViewLog.h"

// The macro wants to stand outside of any namespace.
static void UseIcons() { Q_INIT_RESOURCE(icons); }

namespace qel {

std::vector<WindowDesign> ProgramWindows() {
  UseIcons();
  return {
      {"frmAbout", MakeWindow<QDialog, Ui::frmAbout>},
      {"frmCompare", MakeWindow<QDialog, Ui::frmCompare>},
      {"frmFileRepair", MakeWindow<QDialog, Ui::frmFileRepair>},
      {"frmFind", MakeWindow<QDialog, Ui::frmFind>},
      {"frmHelp", MakeWindow<QWidget, Ui::frmHelp>},
      {"frmMain", MakeWindow<QMainWindow, Ui::frmMain>},
      {"frmPreConfigure", MakeWindow<QDialog, Ui::frmPreConfigure>},
      {"frmPrice", MakeWindow<QDialog, Ui::frmPrice>},
      {"frmPurge", MakeWindow<QDialog, Ui::frmPurge>},
      {"frmReport", MakeWindow<QMainWindow, Ui::frmReport>},
      {"frmService", MakeWindow<QDialog, Ui::frmService>},
      {"frmSetup", MakeWindow<QDialog, Ui::frmSetup>},
      {"frmSplash", MakeWindow<QWidget, Ui::frmSplash, Qt::SplashScreen>},
      {"frmTariff", MakeWindow<QDialog, Ui::frmTariff>},
      {"frmTip", MakeWindow<QDialog, Ui::frmTip>},
      {"frmViewLog", MakeWindow<QMainWindow, Ui::frmViewLog>},
  };
}

}  // namespace qel
