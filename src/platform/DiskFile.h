// An open file of the current disk whose every operation is checked: what the disk answers with errno leaves
// here as a RunTimeError. Calls that a signal interrupted are repeated. For the modules of this folder; the
// rest of the program uses Files.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "values/RunTimeError.h"

namespace qel {

class DiskFile {
 public:
  DiskFile() = default;
  ~DiskFile() { CloseQuietly(); }
  DiskFile(const DiskFile&) = delete;
  DiskFile& operator=(const DiskFile&) = delete;

  // Flags and mode are those of open(2).
  void Open(const std::string& path, int flags, mode_t mode = 0);
  bool IsOpen() const { return handle >= 0; }

  // The path that errors speak of, where it is not the one that was opened.
  void NameInErrors(const std::string& name) { path = name; }

  // The rest raise 52 where the file is not open.

  // The number of bytes read, 0 at the end of the file.
  std::size_t Read(char* buffer, std::size_t size);

  // Reads on from a place, in bytes from the beginning.
  void SeekTo(std::int64_t position);

  // The number of bytes written, at least one.
  std::size_t WriteSome(std::string_view text);
  void Write(std::string_view text);

  // Waits until the disk has it. A pipe or a device that knows no such thing is content at once.
  void Sync();
  void SetMode(mode_t mode);
  // As far as this user may.
  void TakeOwner(uid_t owner, gid_t group);
  struct stat Status();

  // Waits for the exclusive lock, which closing gives back.
  void Lock();
  // The same without waiting: false where another program has it. True where the volume knows no locks.
  bool TryLock();

  // Holds back whoever opens the file for writing, until closing lets them go on, or for as long as the
  // system lets them wait. Refused: somebody has the file open for writing already, or the volume refuses
  // all. Unknown: neither can be had here, and nothing is held back.
  enum class Barrier { Stands, Refused, Unknown };
  Barrier HoldWritersBack();
  // Whether a writer waits before the barrier. False where there is none.
  bool WriterWaits();

  // The file is closed whatever this raises; a file closed already is left alone.
  void Close();
  void CloseQuietly() noexcept;

 private:
  int Handle() const;
  void LetWritersGoOn() noexcept;

  int handle = -1;
  bool hasBarrier = false;
  std::string path;
};

// False where there is nothing at `path`; what else goes wrong is raised.
bool FindStatus(const std::string& path, struct stat& status);

// The error for an errno value; a file not found is 76 where its folder is missing.
[[noreturn]] void RaiseDiskError(int systemError, const std::string& path);

}  // namespace qel
