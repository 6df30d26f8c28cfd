#include "platform/FileWatch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

#include "platform/Files.h"
#include "platform/SymbolicLinks.h"

namespace qel {

FileWatch::FileWatch(const std::string& path) : handle(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (handle < 0) return;
  WatchFolderOf(path);
  try {
    if (const std::string target = BehindLinks(path); target != path) WatchFolderOf(target);
  } catch (const RunTimeError&) {  // a link that leads nowhere: its own name is watched
  }
}

FileWatch::~FileWatch() {
  if (handle >= 0) close(handle);
}

// The folder and not the file: files come and go under a name.
void FileWatch::WatchFolderOf(const std::string& path) {
  names.push_back(FileNamePart(path));
  inotify_add_watch(handle, FolderOf(path).c_str(),
                    IN_MODIFY | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO);
}

bool FileWatch::TakeWord() {
  alignas(inotify_event) std::array<char, 4096> words;
  bool found = false;
  for (ssize_t count; (count = read(handle, words.data(), words.size())) > 0;)
    for (const char* at = words.data(); at < words.data() + count;) {
      inotify_event event;
      std::memcpy(&event, at, sizeof event);
      const char* name = at + sizeof event;
      found = found || event.len == 0 || std::ranges::find(names, name) != names.end();
      at = name + event.len;
    }
  return found;
}

}  // namespace qel
