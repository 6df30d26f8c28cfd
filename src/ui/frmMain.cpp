#include "ui/frmMain.h"

namespace qel {

TheForm<frmMain> MainForm;

frmMain::frmMain() : Form("frmMain") {}

}  // namespace qel
