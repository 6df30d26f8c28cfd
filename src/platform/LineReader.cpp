#include <algorithm>
#include <cstring>
#include <fcntl.h>

#include "platform/Files.h"

namespace qel {

LineReader::LineReader(const std::string& path) : buffer(BlockSize) { OpenWith(path, O_RDONLY, 0); }

bool LineReader::NextOverBlocks(std::string_view& line) {
  for (;;) {
    const std::size_t searched = end - begin;
    if (!Fill()) break;
    const char* from = buffer.data() + begin;
    const auto* feed = static_cast<const char*>(std::memchr(from + searched, '\n', end - begin - searched));
    if (feed == nullptr) continue;
    HandOut(line, static_cast<std::size_t>(feed - from));
    return true;
  }
  if (begin == end) return false;
  line = std::string_view(buffer.data() + begin, end - begin);
  begin = end;
  return true;
}

bool LineReader::Fill() {
  const std::size_t left = end - begin;
  if (begin > 0) std::memmove(buffer.data(), buffer.data() + begin, left);
  begin = 0;
  end = left;
  if (left == buffer.size()) {
    buffer.resize(2 * buffer.size());
  } else if (left < BlockSize && buffer.size() > BlockSize) {  // a long line has been handed out
    buffer.resize(BlockSize);
    buffer.shrink_to_fit();
  }
  const std::size_t count = file.Read(buffer.data() + end, std::min(BlockSize, buffer.size() - end));
  end += count;
  return count > 0;
}

}  // namespace qel
