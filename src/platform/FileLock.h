// A lock among the processes of the machine that use one file.
#pragma once

#include <string>

#include "platform/DiskFile.h"

namespace qel {

// Waits for the lock and holds it for as long as this lives. The lock file is made where it is missing and
// never removed: else one process could hold the removed file while another holds a new one. Raises the
// disk's error where the file cannot be made or locked.
class FileLock {
 public:
  explicit FileLock(const std::string& path);

 private:
  DiskFile file;
};

}  // namespace qel
