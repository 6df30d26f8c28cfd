#include <cerrno>
#include <fcntl.h>
#include <set>

#include "platform/Files.h"

namespace qel {

namespace {

thread_local std::set<OpenFile*> openFiles;

}  // namespace

OpenFile::OpenFile() { openFiles.insert(this); }

OpenFile::~OpenFile() { openFiles.erase(this); }

void OpenFile::OpenWith(const std::string& path, int flags, int mode) {
  if (IsFolder(path)) RaiseDiskError(EISDIR, path);  // else reading one would open well and fail later
  file.Open(path, flags, static_cast<mode_t>(mode));
}

void CloseAllFiles() {
  for (OpenFile* open : openFiles) open->file.CloseQuietly();
}

BlockReader::BlockReader(const std::string& path) : buffer(BlockSize) { OpenWith(path, O_RDONLY); }

std::string_view BlockReader::Next() { return {buffer.data(), file.Read(buffer.data(), buffer.size())}; }

FileWriter::FileWriter(const std::string& path) { OpenWith(path, O_WRONLY | O_CREAT | O_TRUNC, 0666); }

FileWriter::FileWriter(const std::string& path, int newMode) {
  OpenWith(path, O_WRONLY | O_CREAT | O_EXCL, newMode);
}

void FileWriter::Write(std::string_view text) {
  if (!file.IsOpen()) Raise(BadFileName);
  if (pending.size() >= BlockSize) WriteOut();
  pending += text;
}

void FileWriter::Close() {
  WriteOut();
  file.Sync();
  file.Close();
}

void FileWriter::WriteOut() {
  while (written < pending.size()) written += file.WriteSome(std::string_view(pending).substr(written));
  pending.clear();
  written = 0;
}

}  // namespace qel
