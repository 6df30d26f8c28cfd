#include "platform/SymbolicLinks.h"

#include <cerrno>

#include "platform/Disk.h"
#include "platform/Files.h"

namespace qel {

std::string BehindLinks(std::string path) {
  constexpr int MostLinks = 40;
  char target[4096];
  for (int links = 0; links < MostLinks; ++links) {
    const ssize_t length = CurrentDisk().ReadLink(path, target, sizeof target);
    if (length < 0) {
      if (errno == EINVAL || errno == ENOENT) return path;  // no link; nothing there
      RaiseDiskError(errno, path);
    }
    const std::string behind(target, static_cast<std::size_t>(length));
    path = behind.starts_with(PathSeparator) ? behind : FolderOf(path) + PathSeparator + behind;
  }
  RaiseDiskError(ELOOP, path);
}

}  // namespace qel
