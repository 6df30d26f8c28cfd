// The one way in which repair, purge and optimizing rewrite a log: line by line, each by a rule of its own,
// into a working file in the program's folder, which then takes the log's place.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "core/Display.h"
#include "maintenance/LogSwap.h"
#include "platform/FileLock.h"
#include "values/CheckedInteger.h"

namespace qel {

// Held while one of the program's working files is in use.
inline constexpr char LockName[] = "ModemLog.lock";

// Safety copies of the default log and of an archive, in the program's folder: the state before the latest
// rewrite.
inline constexpr char SafetyCopyName[] = "ModemLog.old";
inline constexpr char ArchiveSafetyCopyName[] = "ModemLogArchive.old";

// What a tool works on.
struct LogInHand {
  std::string Log;     // path
  std::string Folder;  // the program's own, where its working files and safety copies lie
  float Entries = 0;   // of the log, as far as known: what the progress is measured by

  std::string WorkingPath(const std::string& name) const { return Folder + PathSeparator + name; }
  // Raises 70 where the log is, by whatever links, one of the program's own files of these names: the tool
  // that writes them would write over what it reads.
  void RefuseOwnFile(std::initializer_list<const char*> names) const;
};

// A file of the tools in the program's folder, that nobody but its owner reads. What an earlier run left is
// removed at the beginning, and what is not in its place by then, at the end.
class WorkingFile {
 public:
  explicit WorkingFile(std::string path);
  ~WorkingFile();
  WorkingFile(const WorkingFile&) = delete;
  WorkingFile& operator=(const WorkingFile&) = delete;

  void Keep() { kept = true; }

  static constexpr int Mode = 0600;
  const std::string Path;

 private:
  bool kept = false;
};

// Tells how far a tool is, in a text and, up to 100 percent, by a bar, and lets the windows show it.
class PercentDone {
 public:
  // The percentage stands behind `doing`.
  PercentDone(Display& display, std::string doing) : display(display), doing(std::move(doing)) {}

  // Only a percentage that differs from the one before is told. Raises 6 where 16 bits do not hold it.
  void Tell(double part, double whole);

 private:
  Display& display;
  const std::string doing;
  std::optional<Int16> told;
};

// What a line, without its end, becomes; nothing where it goes.
using LineRule = std::function<std::optional<std::string>(std::string_view line)>;

// Told behind each line how many lines and bytes have been read, each line's end counted as two bytes.
using LineCounted = std::function<void(Int16 lines, std::int64_t bytes)>;

// One rewrite of a log. While this lives, no other QEL rewrites it.
class LogRewrite {
 public:
  // Both files lie in the program's folder. Raises as LogSwap does.
  LogRewrite(const LogInHand& inHand, const char* workingName, const char* safetyCopyName);

  // Writes the lines of `from` that `rule` keeps, each with CR LF, to the working file. Raises 6 for more
  // than 32767 lines, and the disk's errors.
  void WriteLines(const std::string& from, const LineRule& rule, const LineCounted& counted);

  // The working file becomes the log, and the log as it was at the beginning the safety copy, as LogSwap
  // tells.
  void PutInPlace();

 private:
  const std::string safetyCopy;
  const FileLock lock;
  LogSwap swap;
  const WorkingFile working;
};

// What sets the purge and the optimizing apart.
struct LogTool {
  const char* WorkingName;
  const char* SafetyCopyName;
  const char* Doing;  // "Purging"
  const char* Finished;
  const char* FailureTitle;
  const char* FailureText;
};

// Runs one of these tools on a log and tells the display of its progress. A failure leaves the log
// as it was and is told in a message box. More than 32767 lines are such a failure, and so are a log that is
// written to meanwhile and one that is itself one of the tool's files.
void RunTool(const LogTool& tool, const LogInHand& inHand, const LineRule& rule);

// Does a tool's work: "" where it ran to its end, else why it failed, in one line of Windows-1252. Standard
// error has a word of it.
std::string ReasonOfFailure(const std::function<void()>& work);

}  // namespace qel
