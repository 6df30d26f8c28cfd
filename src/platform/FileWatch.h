// Word of the system that something has happened to a file. Volumes of other machines give none, so whoever
// needs to know looks now and then all the same.
#pragma once

#include <string>
#include <vector>

namespace qel {

class FileWatch {
 public:
  // Watches the name and, where it is a symbolic link, the file that it leads to; neither need be there.
  // Where the system cannot watch, no word comes.
  explicit FileWatch(const std::string& path);
  ~FileWatch();
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  // A file descriptor that can be read from when there is word; below 0 for none.
  int Handle() const { return handle; }

  // Whether there was word of the file since the last call. Waits for nothing.
  bool TakeWord();

 private:
  void WatchFolderOf(const std::string& path);

  int handle;
  std::vector<std::string> names;  // in the folders that are watched
};

}  // namespace qel
