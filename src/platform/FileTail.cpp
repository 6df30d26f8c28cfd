#include "platform/FileTail.h"

#include <algorithm>
#include <fcntl.h>

#include "platform/Files.h"

namespace qel {

namespace {

constexpr std::size_t KnownBytes = 256;  // by which a file is known again

std::string_view Ending(std::string_view text, std::size_t length) {
  return text.substr(text.size() - std::min(text.size(), length));
}

}  // namespace

FileTail::Found FileTail::Compare(DiskFile& file) const {
  const auto status = file.Status();
  if (status.st_dev != volume || status.st_ino != number) return Found::Replaced;
  if (status.st_size < position) return Found::Shrunk;
  file.SeekTo(position - static_cast<std::int64_t>(last.size()));
  std::string stands(last.size(), '\0');
  std::size_t read = 0;
  while (read < stands.size()) {
    const std::size_t count = file.Read(stands.data() + read, stands.size() - read);
    if (count == 0) return Found::Shrunk;
    read += count;
  }
  return stands == last ? Found::Same : Found::Replaced;
}

FileTail::Found FileTail::Read(const TakeLine& take) {
  DiskFile file;
  file.Open(path, O_RDONLY);
  if (!known) {
    const auto status = file.Status();
    volume = status.st_dev;
    number = status.st_ino;
    known = true;
  } else if (const Found found = Compare(file); found != Found::Same) {
    known = false;
    position = 0;
    last.clear();
    begun.clear();
    return found;
  }
  std::string block(BlockSize, '\0');
  while (const std::size_t count = file.Read(block.data(), block.size())) {
    const std::string_view text(block.data(), count);
    position += static_cast<std::int64_t>(count);
    last = Ending(last + std::string(Ending(text, KnownBytes)), KnownBytes);
    Take(text, take);
  }
  file.Close();
  return Found::Same;
}

void FileTail::Take(std::string_view text, const TakeLine& take) {
  for (auto feed = text.find('\n'); feed != text.npos; feed = text.find('\n')) {
    begun += text.substr(0, feed);
    text.remove_prefix(feed + 1);
    if (begun.ends_with('\r')) begun.pop_back();
    take(begun);
    begun.clear();
  }
  begun += text;
}

}  // namespace qel
