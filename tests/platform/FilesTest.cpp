#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <tuple>
#include <vector>

#include "platform/Disk.h"
#include "platform/Files.h"
#include "support/ErrorOf.h"
#include "support/FailingDisk.h"
#include "support/TemporaryFolder.h"

namespace qel {
namespace {

std::vector<std::string> Lines(const std::string& path) {
  LineReader reader(path);
  std::vector<std::string> lines;
  for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
  reader.Close();
  return lines;
}

// Moves a few bytes at a time and is interrupted before each move.
class SlowDisk : public Disk {
  ssize_t Read(int file, void* buffer, std::size_t size) override {
    return Interrupted() ? -1 : Disk::Read(file, buffer, std::min<std::size_t>(size, 3));
  }
  ssize_t Write(int file, const void* data, std::size_t size) override {
    return Interrupted() ? -1 : Disk::Write(file, data, std::min<std::size_t>(size, 3));
  }
  bool Interrupted() {
    interrupt = !interrupt;
    errno = EINTR;
    return interrupt;
  }
  bool interrupt = false;
};

TEST(LineReader, DividesLinesAtLineFeeds) {
  using namespace std::string_literals;
  const std::tuple<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {"\n", {""}},
      {"one\r\ntwo\nthree", {"one", "two", "three"}},
      {"a\rb\r\r\n\r\nlast\r", {"a\rb\r", "", "last\r"}},
      {"nul\0 and \xFF\xE9\n\0"s, {"nul\0 and \xFF\xE9"s, "\0"s}},
  };
  const TemporaryFolder folder;
  for (const auto& [content, lines] : cases) {
    folder.Put("log", content);
    EXPECT_EQ(Lines(folder.Path("log")), lines);
    SlowDisk slow;
    const DiskInPlace inPlace(slow);
    EXPECT_EQ(Lines(folder.Path("log")), lines);
    EXPECT_EQ(ReadWholeFile(folder.Path("log")), content);
  }
}

TEST(LineReader, LinesOfAnyLengthSurviveTheBlockBoundaries) {
  const TemporaryFolder folder;
  std::vector<std::string> lines;
  std::string content;
  for (const std::size_t length : {BlockSize - 2, BlockSize - 1, BlockSize, 5 * BlockSize, std::size_t{7},
                                   BlockSize + 1, std::size_t{0}, 2 * BlockSize, 3 * BlockSize - 1}) {
    lines.push_back(std::string(length, static_cast<char>('a' + lines.size())));
    content += lines.back() + "\r\n";
  }
  folder.Put("log", content);
  EXPECT_EQ(Lines(folder.Path("log")), lines);
}

TEST(Files, HaveAFolderAndAName) {
  for (const auto& [path, folder, name] :
       {std::tuple{"/a/b", "/a/", "b"}, {"b", "", "b"}, {"/a/", "/a/", ""}}) {
    EXPECT_EQ(FolderPart(path), folder);
    EXPECT_EQ(FileNamePart(path), name);
  }
  const TemporaryFolder folder;
  folder.Put("file", "");
  EXPECT_TRUE(FileExists(folder.Path("file")));
  EXPECT_FALSE(FileExists("") || FileExists(folder.Path()) || FileExists(folder.Path("none")));
}

TEST(Files, ClosedAllAtOnceTheyRaise52) {
  const TemporaryFolder folder;
  folder.Put("log", "one\ntwo\nthree\n");
  LineReader reader(folder.Path("log"));
  BlockReader blocks(folder.Path("log"));
  FileWriter writer(folder.Path("out"));
  std::string_view line;
  ASSERT_TRUE(reader.Next(line));
  writer.Write("text");
  CloseAllFiles();
  EXPECT_EQ(ErrorOf([&] { reader.Next(line); }), BadFileName);
  EXPECT_EQ(ErrorOf([&] { blocks.Next(); }), BadFileName);
  EXPECT_EQ(ErrorOf([&] { writer.Write("more"); }), BadFileName);
  EXPECT_EQ(ErrorOf([&] { writer.Close(); }), BadFileName);
  EXPECT_EQ(Lines(folder.Path("log")).size(), 3u);
}

TEST(FileWriter, GoesOnWhereItStoppedWhenTheDiskHasRoomAgain) {
  const TemporaryFolder folder;
  const std::string first(BlockSize, 'a'), second = "second\n";
  FailingDisk disk;
  const DiskInPlace inPlace(disk);
  FileWriter writer(folder.Path("out"));
  writer.Write(first);
  disk.FailNth(1, ENOSPC);
  EXPECT_EQ(ErrorOf([&] { writer.Write(second); }), DiskFull);
  writer.Write(second);
  disk.FailNth(1, ENOSPC);
  EXPECT_EQ(ErrorOf([&] { writer.Close(); }), DiskFull);
  writer.Close();
  EXPECT_EQ(folder.Content("out"), first + second);
}

// Who has to undo a renaming asks no more than whether it raised.
TEST(RenameFile, RaisesOnlyWhereTheFileIsWhereItWas) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("far"));
  TwoVolumes disk;
  const DiskInPlace inPlace(disk);
  for (void (*rename)(const std::string&, const std::string&) : {RenameFile, RenameToNew}) {
    for (const char* target : {"near", "far/log"}) {
      for (int n = 1; n == 1 || disk.Failed(); ++n) {
        folder.Put("source", "content");
        std::filesystem::remove(folder.Path(target));
        disk.FailNth(n);
        const bool raised = ErrorOf([&] { rename(folder.Path("source"), folder.Path(target)); }) != 0;
        EXPECT_EQ(folder.Has("source"), raised) << target << n;
        EXPECT_TRUE(raised || folder.Content(target) == "content") << target << n;
        EXPECT_FALSE(raised && rename == RenameToNew && folder.Has(target)) << target << n;
      }
    }
  }
}

TEST(ReplaceFile, WritesToAPipe) {
  const TemporaryFolder folder;
  const std::string path = folder.Path("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  std::string received;
  std::thread listener([&] { received = folder.Content("pipe"); });
  EXPECT_NO_THROW(ReplaceFile(path, "through"));
  listener.join();
  EXPECT_EQ(received, "through");
}

}  // namespace
}  // namespace qel
