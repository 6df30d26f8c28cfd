// A fixture with the log and the settings of inputs/, its period the three days of which the whole reports
// tell.
#pragma once

#include "support/FreshProgram.h"

namespace qel {

class WeekLog : public FreshProgram {
 protected:
  WeekLog() {
    std::filesystem::create_directory_symlink(QEL_SOURCE_DIR "/tests/reports", folder.Path("reports"));
    Registry.Open(folder.Path("reports/inputs/week.reg"), RegistryStore::Access::ReadOnly);
    ReadUserParameters();
    FillMissingSettings();
    OpenLog(folder.Content("reports/inputs/week.log"));
    SetPeriod(DateSerial(1999, 3, 1), DateSerial(1999, 3, 3));
  }
};

}  // namespace qel
