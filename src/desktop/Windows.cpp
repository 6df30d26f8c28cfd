#include "desktop/Windows.h"

#include <QDialog>
#include <QMainWindow>

#include "desktop/forms/ui_frmAbout.h"
#include "desktop/forms/ui_frmMain.h"
#include "desktop/forms/ui_frmReport.h"
#include "desktop/forms/ui_frmSplash.h"

// The macro wants to stand outside of any namespace.
static void UseIcons() { Q_INIT_RESOURCE(icons); }

namespace qel {

std::vector<WindowDesign> ProgramWindows() {
  UseIcons();
  return {
      {"frmAbout", MakeWindow<QDialog, Ui::frmAbout>},
      {"frmMain", MakeWindow<QMainWindow, Ui::frmMain>},
      {"frmReport", MakeWindow<QMainWindow, Ui::frmReport>},
      {"frmSplash", MakeWindow<QWidget, Ui::frmSplash, Qt::SplashScreen>},
  };
}

}  // namespace qel
