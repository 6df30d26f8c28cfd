// Files as the program uses them: whole-line input, checked output, replacement and renaming that never leave
// less on the disk than before. Every failure is a RunTimeError with the number for its errno; a folder
// opened as a file is 75, a missing folder on the way is 76, a missing file 53.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DiskFile.h"

namespace qel {

// The separator of folders in file paths (registry paths have their own).
inline constexpr char PathSeparator = '/';

// Files are read and written in blocks of this many bytes.
inline constexpr std::size_t BlockSize = 64 * 1024;

// False where there is nothing at `path`. Raise what else goes wrong, such as a folder on the way that may
// not be searched.
bool PathExists(const std::string& path);
bool IsFolder(const std::string& path);
bool FileExists(const std::string& path);  // something that is no folder

// Whether `path` is a pipe or a device, which gives its bytes only once and tells no length. False where it
// cannot be looked at.
bool IsStream(const std::string& path);

// Whether both paths lead to one file, by whatever links. False where either cannot be looked at.
bool IsSameFile(const std::string& a, const std::string& b);

// The size of a file in bytes. Raises 53 where there is none.
std::int64_t FileLength(const std::string& path);

// By what a file that somebody wrote to in the meantime is told from the one that was read.
struct FileStamp {
  std::int64_t Length = 0;    // bytes
  std::int64_t Modified = 0;  // nanoseconds since 1970
  bool operator==(const FileStamp&) const = default;
};

// Raises 53 where there is no file.
FileStamp StampOf(const std::string& path);
FileStamp StampOf(const struct stat& status);

// Makes a folder and the folders above it that are missing, each with `mode`.
void MakeFolders(const std::string& path, int mode = 0777);

// The folder part of a path, without the separator; "." when it has none.
std::string FolderOf(const std::string& path);

// The part of a path behind the last separator, and the part up to and with it.
std::string FileNamePart(const std::string& path);
std::string FolderPart(const std::string& path);

// A file that is open. The open files of a thread stand in one table so that all can be closed at once; a
// file closed that way raises 52 when it is used again. It is destroyed on the thread that made it.
class OpenFile {
 public:
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

 protected:
  OpenFile();
  virtual ~OpenFile();  // closes without looking at the outcome; Close() looks
  void OpenWith(const std::string& path, int flags, int mode = 0);

  friend void CloseAllFiles();

  DiskFile file;
};

// Closes every open file of this thread. Raises nothing.
void CloseAllFiles();

// Reads a file line by line. A line ends at a line feed, a carriage return before it belonging to the end;
// the last line may lack its end. A lone carriage return, NUL and bytes above 127 are ordinary characters.
// The file is read in blocks of 256 KB; only a longer line takes more memory.
class LineReader : public OpenFile {
 public:
  // Begins `from` bytes behind the file's beginning.
  explicit LineReader(const std::string& path, std::int64_t from = 0);

  // The next line without its end, valid until the next call; false at the end of the file.
  bool Next(std::string_view& line) {
    if (!file.IsOpen()) Raise(BadFileName);
    const char* from = buffer.data() + begin;
    const auto* feed = static_cast<const char*>(std::memchr(from, '\n', end - begin));
    if (feed == nullptr) return NextOverBlocks(line);
    HandOut(line, static_cast<std::size_t>(feed - from));
    return true;
  }

  // What is read already and not handed out, from the beginning of a line on. Nothing where the file is
  // closed.
  std::string_view Held() const {
    return file.IsOpen() ? std::string_view(buffer.data() + begin, end - begin) : std::string_view();
  }
  // Steps over some of it, which must be whole lines.
  void PassOver(std::size_t bytes) { begin += bytes; }

  void Close() { file.Close(); }

 private:
  // Hands out `length` bytes, of which a carriage return at the end is left out, and steps over the line
  // feed.
  void HandOut(std::string_view& line, std::size_t length) {
    line = std::string_view(buffer.data() + begin, length);
    begin += length + 1;
    if (length > 0 && line.back() == '\r') line.remove_suffix(1);
  }
  bool NextOverBlocks(std::string_view& line);
  bool
  Fill();  // reads on behind what is left, which then begins the buffer; false when the file gives no more

  std::vector<char> buffer;
  std::size_t begin = 0;  // of what is not handed out yet
  std::size_t end = 0;
};

// Reads a file in blocks, for who looks at bytes.
class BlockReader : public OpenFile {
 public:
  explicit BlockReader(const std::string& path);
  std::string_view Next();  // empty at the end of the file; valid until the next call
  void Close() { file.Close(); }

 private:
  std::vector<char> buffer;
};

// Writes a file from its beginning, emptying what stood there, or a new file with the permissions `newMode`,
// which raises 58 where something stands. Writes are gathered in blocks; Close writes
// the rest, flushes to the disk and raises what went wrong. A file that is not closed is not complete. A
// Write that failed has taken nothing of its text, so it can be run again when the disk has room.
class FileWriter : public OpenFile {
 public:
  explicit FileWriter(const std::string& path);
  FileWriter(const std::string& path, int newMode);
  void Write(std::string_view text);
  void Close();

 private:
  void WriteOut();
  std::string pending;
  std::size_t written = 0;  // of what is pending
};

// Raises as the readers do.
std::string ReadWholeFile(const std::string& path);

// Replaces a file's content so that a crash at any instant leaves the old content or the new, whole: a
// temporary file beside it, flush, rename, flush of the folder. A symbolic link is resolved, and the file
// behind it keeps its mode and, where this user may give it, its owner. New files get `newMode` less the
// process's umask. What is no regular file, such as a pipe, is written to.
void ReplaceFile(const std::string& path, std::string_view content, int newMode = 0644);

// Makes a file in the same way where there is none. Raises 58 where there is one, or comes one meanwhile.
void CreateFile(const std::string& path, std::string_view content, int newMode = 0644);

// Removes what programs that crashed while they replaced this file have left beside it; temporary files of
// programs that still run stay. A failure is passed over: nothing waits for it.
void RemoveStrayTemporaries(const std::string& path);

// Renames a file; an existing file at `to` is replaced. Symbolic links at either end stay where they are: it
// is the file behind the link that moves, and the file behind the other link that is replaced or made. Across
// volumes it is copied beside `to`, flushed, renamed there and removed here, in that order, so that one whole
// copy always stands. Where it raises, the file is still at `from`; a crash may undo what is not flushed.
void RenameFile(const std::string& from, const std::string& to);

// Renames a file where nothing stands at `to`. Raises 58 where something does, at whatever instant it came,
// and leaves both alone then. Links are not followed. Across volumes the file is copied to `to` and flushed
// before it is removed here; a crash may leave part of it there.
void RenameToNew(const std::string& from, const std::string& to);

// Renames a file to the first name that is free of `wanted`, `wanted`-2, `wanted`-3, ..., and returns it.
std::string RenameToFreeName(const std::string& from, const std::string& wanted);

// Waits until the disk has the names that were given and taken in a folder.
void FlushFolder(const std::string& path);

// Gives a file the permissions of another and, where this user may give it, its owner.
void CopyOwnerAndMode(const std::string& from, const std::string& to);

// Removes a file. Raises 53 where there is none.
void RemoveFile(const std::string& path);

}  // namespace qel
