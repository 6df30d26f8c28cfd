// How new content comes into a log's place, for all that rewrites, clears or saves one, while other programs
// may write to it at any instant.
//
// The new content is made ready beside the log (log.qel-new). Then the log is moved aside (log.qel-old), the
// new content takes the place that is free by then, and what was moved aside becomes the safety copy. Nothing
// is renamed onto a file, so a log that somebody begins in between stays. What was moved aside is looked at
// again, since a program that had the log open writes there; programs that want to open it in between wait.
//
//   log      log.qel-old   log.qel-new   what a run left that ended in the midst, or failed
//   there    -             -             nothing
//   there    -             there         it had not begun: log.qel-new goes
//   missing  there         -/there       log.qel-old is the log: it is put back
//   there    there         -/there       the log is another one, or whole, and log.qel-old may hold what it
//                                        lacks: it is kept under a free name (log.kept), and the user told
//   missing  -             -/there       nothing of ours: the log was taken away by somebody else
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace qel {

// A failure that the system has no words for.
class LogFailure : public RunTimeError {
 public:
  LogFailure(int number, std::string reason) : RunTimeError(number), reason(std::move(reason)) {}
  const std::string& Reason() const { return reason; }

 private:
  std::string reason;
};

// Why something failed, as a line for the user, in Windows-1252.
std::string WhyItFailed(const RunTimeError& error);

// One exchange of a log's content. While this lives, no other QEL exchanges the same log.
class LogSwap {
 public:
  // The content to be replaced is the log as it was `seen`, or as it is now. Raises 53 where there is no log,
  // 70 where another QEL has it in hand.
  explicit LogSwap(const std::string& log, const std::optional<FileStamp>& seen = std::nullopt);

  // `working` takes the log's place, with its mode and owner, and the log that of `safetyCopy`, or goes where
  // that is empty. Raises 70 for a log that is not as it was seen any more or that another program holds open
  // for writing, and the disk's errors. Where it raises, the log is in its place as it was; or it is kept
  // beside it, which the user is told in a message box. It can be called once.
  void PutInPlace(const std::string& working, const std::string& safetyCopy);

  // The same with a text.
  void PutTextInPlace(std::string_view text, const std::string& safetyCopy);

 private:
  template <typename Work>
  void OrMend(Work work);
  void Exchange(const std::string& safetyCopy);
  void FillPlace();
  void RefuseChanged(const std::string& path);
  void RescueLateLines();

  const std::string log, aside, replacement;
  DiskFile old;  // what stands at `log` until it is exchanged
  FileStamp seen;
};

// Writes a log, archive or not: a new one, or in the place of one that is as it was `seen` (or is now). No
// safety copy is made. Raises as LogSwap does, but for a failure behind which the text stands in the log; 58
// for a new one where somebody else made it meanwhile.
void WriteLog(const std::string& path, std::string_view text,
              const std::optional<FileStamp>& seen = std::nullopt);

// Sets right, by the table above, what an ended run has left at a log's place, and tells the user. A log that
// another QEL has in hand is left alone. Raises the disk's errors.
void MendInterruptedSwap(const std::string& log);

}  // namespace qel
