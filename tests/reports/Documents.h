// The documents of a report, as a script beside this reads them.
#pragma once

#include <cstdlib>

#include "support/TemporaryFolder.h"

namespace qel {

// What check-documents says of the folder's documents; empty where they are sound.
inline std::string FaultsOfDocuments(const TemporaryFolder& folder) {
  const std::string check = QEL_SOURCE_DIR "/tests/reports/check-documents " + folder.Path();
  const int status = std::system((check + " >" + folder.Path("faults") + " 2>&1").c_str());
  return status == 0 ? "" : folder.Content("faults") + "\nstatus " + std::to_string(status);
}

}  // namespace qel
