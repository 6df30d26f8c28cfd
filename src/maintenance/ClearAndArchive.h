// Saving the log as an archive, and clearing it, which is done best behind that. Neither keeps a safety copy.
#pragma once

#include <optional>
#include <string>

#include "platform/Files.h"

namespace qel {

// A try to save a log as an archive.
struct ArchiveTry {
  std::string Log;      // path
  FileStamp Text;       // the log as the text was read from it
  std::string Failure;  // why it could not be saved; empty where it was
};

// Writes `text`, which was read from `log` when that was as `read`, with a line's end behind it to `path`.
ArchiveTry SaveArchive(const std::string& path, const std::string& text, const std::string& log,
                       const FileStamp& read);

// What speaks against clearing a log behind the last try to save one: that it could not be saved, or has
// changed since. "" where nothing does.
std::string DoubtAboutClearing(const std::string& log, const ArchiveTry& last);

// Puts a log of one entry in the place of `log`, if that is as it was `seen`, or as it is now. Raises as
// WriteLog does.
void ClearLog(const std::string& log, const std::optional<FileStamp>& seen);

}  // namespace qel
