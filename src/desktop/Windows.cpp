#include "desktop/Windows.h"

namespace qel {

// TODO: {"frmMain", MakeWindow<QMainWindow, Ui::frmMain>} and its like, with "desktop/forms/ui_frmMain.h",
// once the designs are drawn.
std::vector<WindowDesign> ProgramWindows() { return {}; }

}  // namespace qel
