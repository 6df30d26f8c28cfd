#include "maintenance/LogSwap.h"

#include <fcntl.h>
#include <iostream>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/SymbolicLinks.h"
#include "values/CodePage.h"

namespace qel {

namespace {

std::string AsidePath(const std::string& log) { return log + ".qel-old"; }
std::string ReplacementPath(const std::string& log) { return log + ".qel-new"; }
std::string KeptPath(const std::string& log) { return log + ".kept"; }

constexpr char Changed[] = "the log changed while it was read";
constexpr char HeldOpen[] = "another program holds the log open for writing";
constexpr char BegunAnew[] = "another program began a new log meanwhile";
constexpr char InOtherHands[] = "another QEL is rewriting the log";

void TellKept(const std::string& path) {
  std::cerr << "qel: the log as it was before is kept as " << path << '\n';
  MsgBox(
      {"QEL could not put a new modem log in the place of the old one\r\n"
       "without losing what another program wrote meanwhile.\r\n"
       "\r\n"
       "The log as it was before, with all that was added to it, is kept as\r\n" +
           PathText(path) +
           "\r\n"
           "\r\n"
           "You can open it with 'Open Archive or Log' in the 'File' menu.",
       "Modem Log", Icon::Exclamation});
}

// Only where the volume lets a barrier stand before another file, one that nobody has open, is it the other
// programs that refuse it.
bool IsHeldOpen(DiskFile& log, const std::string& anotherFile) {
  if (log.HoldWritersBack() != DiskFile::Barrier::Refused) return false;
  DiskFile other;
  other.Open(anotherFile, O_RDONLY);
  return other.HoldWritersBack() == DiskFile::Barrier::Stands;
}

// Gives what was moved aside its place back, else a name to be kept under, which it returns.
std::string PutBackOrKeep(const std::string& log) {
  try {
    RenameToNew(AsidePath(log), log);
    return "";
  } catch (const RunTimeError& error) {
    if (error.Number() != FileAlreadyExists) throw;
    return RenameToFreeName(AsidePath(log), KeptPath(log));
  }
}

bool Holds(const std::string& path, std::string_view text) {
  bool same = false;
  IgnoreErrors([&] { same = ReadWholeFile(path) == text; });
  return same;
}

// True where the log was put back.
bool Mend(const std::string& log) {
  const std::string aside = AsidePath(log), replacement = ReplacementPath(log);
  const bool isMoved = PathExists(aside);
  if (!isMoved && !(PathExists(replacement) && PathExists(log))) return false;
  DiskFile inHand;
  inHand.Open(isMoved ? aside : log, O_RDONLY);
  if (!inHand.TryLock()) return false;
  inHand.Close();
  bool putBack = false;
  std::string kept;
  if (isMoved && IsSameFile(aside, log)) {  // ended between giving the second name and taking the first
    RemoveFile(aside);
  } else if (isMoved) {
    kept = PutBackOrKeep(log);
    putBack = kept.empty();
    FlushFolder(FolderOf(log));
  }
  if (PathExists(replacement)) RemoveFile(replacement);
  if (!kept.empty()) TellKept(kept);
  return putBack;
}

}  // namespace

std::string WhyItFailed(const RunTimeError& error) {
  if (const auto* failure = dynamic_cast<const LogFailure*>(&error)) return failure->Reason();
  return PathText((error.Path().empty() ? "" : error.Path() + ": ") + ReasonOf(error));
}

LogSwap::LogSwap(const std::string& path, const std::optional<FileStamp>& seen)
    : log(BehindLinks(path)), aside(AsidePath(log)), replacement(ReplacementPath(log)) {
  MendInterruptedSwap(log);
  old.Open(log, O_RDONLY);
  if (!old.TryLock()) throw LogFailure(PermissionDenied, InOtherHands);
  this->seen = seen ? *seen : StampOf(old.Status());
}

void LogSwap::PutInPlace(const std::string& working, const std::string& safetyCopy) {
  OrMend([&] {
    RenameToNew(working, replacement);
    Exchange(safetyCopy);
  });
}

void LogSwap::PutTextInPlace(std::string_view text, const std::string& safetyCopy) {
  constexpr int OwnerOnly = 0600;
  OrMend([&] {
    FileWriter writer(replacement, OwnerOnly);
    writer.Write(text);
    writer.Close();
    Exchange(safetyCopy);
  });
}

// Whoever waited for the log goes on before it is put back, and writes to it wherever it is.
template <typename Work>
void LogSwap::OrMend(Work work) {
  try {
    work();
  } catch (...) {
    old.CloseQuietly();
    IgnoreErrors([this] { Mend(log); });
    throw;
  }
}

void LogSwap::Exchange(const std::string& safetyCopy) {
  CopyOwnerAndMode(log, replacement);
  if (IsHeldOpen(old, replacement)) throw LogFailure(PermissionDenied, HeldOpen);
  RefuseChanged(log);
  RenameToNew(log, aside);
  RefuseChanged(aside);
  FillPlace();
  FlushFolder(FolderOf(log));
  RefuseChanged(aside);  // by whoever had found it before it was moved
  if (safetyCopy.empty())
    RemoveFile(aside);
  else
    RenameFile(aside, safetyCopy);
  if (!safetyCopy.empty()) FlushFolder(FolderOf(BehindLinks(safetyCopy)));
  if (StampOf(old.Status()) != seen) RescueLateLines();
  old.Close();
}

void LogSwap::FillPlace() {
  try {
    RenameToNew(replacement, log);
  } catch (const RunTimeError& error) {
    if (error.Number() != FileAlreadyExists) throw;
    throw LogFailure(PermissionDenied, BegunAnew);
  }
}

void LogSwap::RefuseChanged(const std::string& path) {
  if (StampOf(path) != seen || old.WriterWaits()) throw LogFailure(PermissionDenied, Changed);
}

// Where writers cannot be held back: one that had the log open has written to it when it was the log no more.
// The file is gone from its place by now, or is a safety copy, which the next run replaces.
void LogSwap::RescueLateLines() {
  FileWriter copy(aside, 0600);
  char block[16 * 1024];
  while (const std::size_t count = old.Read(block, sizeof block)) copy.Write({block, count});
  copy.Close();
  throw LogFailure(PermissionDenied, Changed);
}

void WriteLog(const std::string& path, std::string_view text, const std::optional<FileStamp>& seen) {
  if (IsStream(path)) return ReplaceFile(path, text);
  if (!seen && !PathExists(path)) return CreateFile(path, text);
  try {
    LogSwap(path, seen).PutTextInPlace(text, "");
  } catch (const LogFailure&) {
    throw;
  } catch (const RunTimeError&) {
    if (!Holds(path, text)) throw;  // what fails behind the exchange does not undo it
  }
}

void MendInterruptedSwap(const std::string& log) {
  if (!Mend(BehindLinks(log))) return;
  MsgBox(
      {"QEL was interrupted while it was rewriting your modem log.\r\n"
       "\r\n"
       "The log has been put back as it was before. Please run\r\n"
       "the tool from the TOOLS menu again.",
       "Modem Log", Icon::Information});
}

}  // namespace qel
