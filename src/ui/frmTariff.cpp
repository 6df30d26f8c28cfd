#include "ui/frmTariff.h"

namespace qel {

TheForm<frmTariff> TariffForm;

frmTariff::frmTariff() : Form("frmTariff") {}

}  // namespace qel
