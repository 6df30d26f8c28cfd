#include "ui/frmSetup.h"

namespace qel {

bool OptionsChanged = false;
bool LogPathChanged = false;
TheForm<frmSetup> SetupForm;

frmSetup::frmSetup() : Form("frmSetup") {}

}  // namespace qel
