#include <algorithm>
#include <cstring>
#include <fcntl.h>

#include "platform/Files.h"

namespace qel {

LineReader::LineReader(const std::string& path, std::int64_t from) : buffer(BlockSize) {
  OpenWith(path, O_RDONLY);
  if (from > 0) file.SeekTo(from);
}

bool LineReader::NextOverBlocks(std::string_view& line) {
  for (;;) {
    const std::size_t searched = end - begin;
    if (!Fill()) break;
    const char* from = buffer.data();
    const auto* feed = static_cast<const char*>(std::memchr(from + searched, '\n', end - searched));
    if (feed == nullptr) continue;
    HandOut(line, static_cast<std::size_t>(feed - from));
    return true;
  }
  line = std::string_view(buffer.data(), end);
  begin = end;
  return !line.empty();
}

bool LineReader::Fill() {
  end -= begin;
  if (begin > 0)
    std::memmove(buffer.data(), buffer.data() + begin, end);  // else in the middle of a long line
  begin = 0;
  if (end == buffer.size()) buffer.resize(2 * buffer.size());
  const std::size_t count = file.Read(buffer.data() + end, std::min(BlockSize, buffer.size() - end));
  end += count;
  return count > 0;
}

}  // namespace qel
