// The lines that a file gains while others write to it. It is opened for each look only, and never locked.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/DiskFile.h"

namespace qel {

class FileTail {
 public:
  explicit FileTail(std::string path) : path(std::move(path)) {}

  enum class Found {
    Same,     // the file as it was, or longer
    Shrunk,   // it is shorter now
    Replaced  // another file has its name, or other content stands where this one was read
  };
  using TakeLine = std::function<void(std::string_view line)>;

  // Hands out the lines, without their ends, that have come since the last look; one that is begun waits for
  // its end. Of what is no longer the same nothing is handed out: the next look is at its beginning. Raises
  // as the readers of Files.h do, 53 where there is no file; the next look goes on where this one was.
  Found Read(const TakeLine& take);

 private:
  Found Compare(DiskFile& file) const;
  void Take(std::string_view text, const TakeLine& take);

  const std::string path;
  std::int64_t position = 0;  // bytes read
  std::string last;           // of them, to know the file by
  std::string begun;          // of a line, without its end
  bool known = false;
  dev_t volume = 0;
  ino_t number = 0;  // of the file on its volume
};

}  // namespace qel
