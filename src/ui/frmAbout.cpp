#include "ui/frmAbout.h"

namespace qel {

TheForm<frmAbout> AboutForm;

frmAbout::frmAbout() : Form("frmAbout") {}

}  // namespace qel
