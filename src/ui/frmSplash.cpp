#include "ui/frmSplash.h"

namespace qel {

TheForm<frmSplash> SplashForm;

frmSplash::frmSplash() : Form("frmSplash") {}

}  // namespace qel
