#include <filesystem>
#include <gtest/gtest.h>
#include <poll.h>
#include <vector>

#include "platform/FileTail.h"
#include "platform/FileWatch.h"
#include "platform/Files.h"
#include "support/ErrorOf.h"
#include "support/TemporaryFolder.h"

namespace qel {

namespace {

class FileTailTest : public ::testing::Test {
 protected:
  // What a look finds: the lines, and behind them what became of the file.
  std::string Look() {
    static const std::string ends[] = {"", "shrunk", "replaced"};
    std::string seen;
    const auto found = tail.Read([&seen](std::string_view line) { seen += std::string(line) + "|"; });
    return seen + ends[static_cast<std::size_t>(found)];
  }
  void Append(const std::string& text) {
    std::ofstream(folder.Path("log"), std::ios::app | std::ios::binary) << text;
  }

  TemporaryFolder folder;
  FileTail tail{folder.Path("log")};
};

}  // namespace

TEST_F(FileTailTest, ALineComesOnceAndWhole) {
  const std::string longLine(3 * BlockSize + 1, 'x');
  const std::pair<std::string, std::string> looks[] = {
      {"", ""},          {"one\r\n", "one|"},
      {"", ""},          {"half", ""},
      {" a line\r", ""}, {"\n\nnext\nrest", "half a line||next|"},
      {"\r", ""},        {"x\n", "rest\rx|"},
      {longLine, ""},    {"\nend\n", longLine + "|end|"},
  };
  for (const auto& [gained, seen] : looks) {
    Append(gained);
    EXPECT_EQ(Look(), seen) << gained.substr(0, 20);
  }
}

TEST_F(FileTailTest, ALogThatIsNoLongerTheSameIsReadFromItsBeginning) {
  Append("one\ntwo\nhalf");
  Look();
  folder.Put("log", "two\n");
  EXPECT_EQ(Look(), "shrunk");
  EXPECT_EQ(Look(), "two|");
  folder.Put("log", "six\nseven\n");  // in its place, and longer
  EXPECT_EQ(Look(), "replaced");
  EXPECT_EQ(Look(), "six|seven|");
  folder.Put("new", "six\nseven\neight\n");
  std::filesystem::rename(folder.Path("new"), folder.Path("log"));
  EXPECT_EQ(Look(), "replaced");
  EXPECT_EQ(Look(), "six|seven|eight|");
}

TEST_F(FileTailTest, AFileThatComesBackIsReadOn) {
  EXPECT_EQ(ErrorOf([&] { Look(); }), FileNotFound);
  Append("one\n");
  EXPECT_EQ(Look(), "one|");
  std::filesystem::rename(folder.Path("log"), folder.Path("aside"));
  EXPECT_EQ(ErrorOf([&] { Look(); }), FileNotFound);
  std::filesystem::rename(folder.Path("aside"), folder.Path("log"));
  Append("two\n");
  EXPECT_EQ(Look(), "two|");
}

// A file that is always its name, and one behind a link in another folder.
TEST_F(FileTailTest, WordComesOfTheFileAloneHoweverItChanges) {
  std::filesystem::create_directory(folder.Path("far"));
  std::filesystem::create_symlink(folder.Path("far/target"), folder.Path("link"));
  for (const std::string name : {"log", "link"}) {
    FileWatch watch(folder.Path(name));
    const auto isWoken = [&watch] {
      pollfd polled{watch.Handle(), POLLIN, 0};
      return poll(&polled, 1, 0) > 0 && watch.TakeWord();
    };
    const std::string file = name == "log" ? "log" : "far/target";
    EXPECT_FALSE(isWoken());
    folder.Put(file, "one\n");
    EXPECT_TRUE(isWoken()) << file;
    EXPECT_FALSE(isWoken());
    folder.Put("another", "");
    EXPECT_FALSE(isWoken());
    std::filesystem::rename(folder.Path(file), folder.Path(file + ".old"));
    EXPECT_TRUE(isWoken());
    std::filesystem::rename(folder.Path(file + ".old"), folder.Path(file));
    EXPECT_TRUE(isWoken());
    std::filesystem::remove(folder.Path(file));
    EXPECT_TRUE(isWoken());
  }
}

}  // namespace qel
