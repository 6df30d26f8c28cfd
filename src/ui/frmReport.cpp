#include "ui/frmReport.h"

namespace qel {

TheForm<frmReport> ReportForm;

frmReport::frmReport() : Form("frmReport") {}

}  // namespace qel
