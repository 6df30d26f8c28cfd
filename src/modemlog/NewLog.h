// A log that is begun anew.
#pragma once

#include <string>

namespace qel {

// The one entry of a new log, with its end: that it is new.
std::string NewLogEntry();

// Makes a new log where there is none. False where there is one, or the modem's driver makes one meanwhile;
// it stays as it is. Raises the disk's errors.
bool NewModemLog(const std::string& path);

}  // namespace qel
