#include "platform/FileLock.h"

#include <fcntl.h>

namespace qel {

FileLock::FileLock(const std::string& path) {
  file.Open(path, O_RDWR | O_CREAT, 0600);
  file.Lock();
}

}  // namespace qel
