// The pass over a log's lines that purge, optimizing and repair have in common, and the files that it works
// in.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "values/CheckedInteger.h"

namespace qel {

// Held while one of the program's working files is in use.
inline constexpr char LockName[] = "ModemLog.lock";

// A file of the tools in the program's folder, that nobody but its owner reads. What an earlier run left is
// removed at the beginning, and what is not in its place by then, at the end.
class WorkingFile {
 public:
  explicit WorkingFile(const char* name);
  ~WorkingFile();
  WorkingFile(const WorkingFile&) = delete;
  WorkingFile& operator=(const WorkingFile&) = delete;

  void Keep() { kept = true; }

  const std::string Path;

 private:
  bool kept = false;
};

inline constexpr int WorkingFileMode = 0600;

// What a line, without its end, becomes; nothing where it goes.
using LineRule = std::function<std::optional<std::string>(std::string_view line)>;
// Told of each line: which one it is, counted from 1, and its length.
using LineCounted = std::function<void(Int16 line, std::size_t length)>;

// Writes the lines of `from` that `rule` keeps, each with CR LF, to the new file `to`. Raises 6 for more than
// 32767 lines, and the disk's errors.
void RewriteLines(const std::string& from, const std::string& to, const LineRule& rule,
                  const LineCounted& counted);

// Does a tool's work: "" where it ran to its end, else why it failed, in one line of Windows-1252. Standard
// error has a word of it.
std::string ReasonOfFailure(const std::function<void()>& work);

}  // namespace qel
