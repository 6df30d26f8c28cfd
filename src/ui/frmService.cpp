#include "ui/frmService.h"

namespace qel {

bool NewService = false;
bool ServiceEditCancelled = false;
BoundedArray<TariffRecord> TariffCopy;
Int16 TariffCopyCount;
bool NewTariff = false;
TheForm<frmService> ServiceForm;

frmService::frmService() : Form("frmService") {}

}  // namespace qel
