#include "ui/frmReport.h"

namespace qel {

TheForm<frmReport> ReportForm;

frmReport::frmReport() : Form("frmReport") {}

void frmReport::ShowAnalysis() {}
void frmReport::OpenReport(const std::string&) {}

}  // namespace qel
