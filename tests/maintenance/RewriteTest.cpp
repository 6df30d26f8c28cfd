#include <sys/stat.h>
#include <unistd.h>

#include "core/Display.h"
#include "maintenance/LinePass.h"
#include "maintenance/LogRewrite.h"
#include "maintenance/LogSwap.h"
#include "maintenance/Repair.h"
#include "platform/CodePage.h"
#include "platform/TextConversion.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"

namespace qel {

// Writes down what it is told of the work.
class Listener : public Display {
 public:
  void StatusText(const std::string& text) override { said += text + "|"; }
  void ShowProgress(bool visible) override { said += visible ? "begin|" : "end|"; }
  void Progress(Int16 percent) override { said += "bar " + std::to_string(percent) + "|"; }
  std::string said;
};

class RewriteTest : public FreshProgram {
 protected:
  RewriteTest() {
    AppPath = folder.Path();
    SetDisplay(listener);
  }

  void Open(const std::string& log) {
    OpenLog(log);
    ArchiveOpen = false;
  }
  std::string Log() const { return folder.Content("test.log"); }
  static void Purge(int from, int to) { DoPurge(DateSerial(1999, 1, from), DateSerial(1999, 1, to)); }
  void Repair() {
    LogRepair repair([this](const std::optional<std::string>& text, const auto& percent) {
      if (text) listener.StatusText(*text);
      if (percent) listener.Progress(*percent);
    });
    LogLength = 7;  // which each pass finds out for itself
    repair.FixCorruption();
    if (between) between();
    LogLength = 7;
    repair.CheckEntries();
  }

  Listener listener;
  std::string& said = listener.said;
  std::function<void()> between;  // the passes of a repair
};

TEST_F(RewriteTest, EachToolKeepsWhatItHasToAndASafetyCopy) {
  const auto unfolded = [](const std::string& text) {
    std::string lines;
    for (const char c : text) lines += c == '|' ? "\r\n" : c == '/' ? "\n" : std::string(1, c);
    return lines;
  };
  for (const auto& [tool, log, result, trace] : Cases("maintenance/Rewrites")) {
    Open(unfolded(log));
    LineReader left(CurrentLogPath);
    std::string_view line;
    if (tool == "repair") {
      Repair();
    } else {
      tool == "optimize" ? DoOptimize() : Purge(tool[6] - '0', tool[8] - '0');
    }
    EXPECT_EQ(Log(), unfolded(result)) << tool;
    EXPECT_EQ(folder.Content("ModemLog.old"), unfolded(log)) << tool;
    for (const char* working : {PurgedName, OptimizedName, RepairedName}) EXPECT_FALSE(folder.Has(working));
    EXPECT_EQ(ProcedureTrace, trace);
    EXPECT_THROW(left.Next(line), RunTimeError) << "open files are closed";
  }
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(std::filesystem::status(folder.Path(CleanedName)).permissions(), std::filesystem::perms{0600});
}

TEST_F(RewriteTest, ProgressIsToldByTheEntriesThatAreKnown) {
  const std::string doing = "Please Wait .....Purging  ";
  const struct {
    int lines;
    float entries;
    std::string said;
    int yields;
  } cases[] = {
      {1, 0, "", 0},
      {1, 1, doing + "100%|bar 100|", 1},
      {3, 2, doing + "50%|bar 50|" + doing + "100%|bar 100|" + doing + "150%|", 3},
      {600, 60000, doing + "0%|bar 0|" + doing + "1%|bar 1|", 2},
  };
  for (const auto& c : cases) {
    Open(std::string(static_cast<std::size_t>(c.lines), '\n'));
    LogEntries = c.entries;
    said.clear();
    int yields = 0;
    host.yielded = [&yields] { ++yields; };
    host.pointer = MousePointer::Hourglass;
    Purge(5, 5);
    EXPECT_EQ(said, "begin|" + c.said + "end|Finished Purging Records!|");
    EXPECT_EQ(std::pair(yields, host.pointer), std::pair(c.yields, MousePointer::Default)) << c.said;
  }
}

TEST_F(RewriteTest, AnArchivesSafetyCopyIsItsOwn) {
  const std::string log = "01-05-1999 READS\r\n";
  Open(log);
  ArchiveOpen = true;
  folder.Put("ModemLog.old", "of the default log");
  DoOptimize();
  EXPECT_EQ(folder.Content("ModemLog.old"), "of the default log");
  EXPECT_EQ(folder.Content("ModemLogArchive.old"), log);
}

TEST_F(RewriteTest, ARepairKeepsPrintableBytes) {
  std::string log, repaired;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == '\r' || byte == '\n') continue;
    const std::string text(1, static_cast<char>(byte));
    log += "01-05-1999" + text + "a\r\n";
    repaired += "01-05-1999" + (byte >= 32 && byte < 127 ? text : "") + "a\r\n";
  }
  Open(log);
  Repair();
  EXPECT_EQ(Log(), repaired);
}

TEST_F(RewriteTest, ARepairTellsEveryPercentOfBothPasses) {
  for (const int interval : {1, 2}) {
    std::string log, expected = "Please Wait.... Reading Modem Log|";
    const auto tell = [&expected](const std::string& doing, int percent) {
      expected += doing + ".... " + std::to_string(percent) + "%|bar " + std::to_string(percent) + "|";
    };
    for (int percent = 1; percent <= 100; ++percent) tell("Repairing Modem Log.....", percent);
    for (const int percent : {25, 50, 75}) tell("Checking Entries.....", percent);
    tell("Checking Entries.....", interval == 1 ? 101 : 100);  // with an end that the first pass took
    const std::string end(static_cast<std::size_t>(interval * 25 - 12), 'x');
    for (int line = 0; line < 4; ++line) log += "01-05-1999" + end + "\r\n";
    Open(log);
    said.clear();
    Repair();
    EXPECT_EQ(said, expected + "bar 100|");
    EXPECT_EQ(host.pointer, MousePointer::Default);
  }
  Open(std::string(4000, '\n'));
  said.clear();
  Repair();
  EXPECT_EQ(std::ranges::count(said, 'C'), 201) << "200 percent, each told once";
}

TEST_F(RewriteTest, AReasonIsALineForTheUser) {
  EXPECT_EQ(ReasonOfFailure([] {}), "");
  EXPECT_EQ(ReasonOfFailure([] { throw std::bad_alloc(); }), "Out of memory");
  EXPECT_EQ(ReasonOfFailure([] { RemoveFile("/none"); }), "/none: No such file or directory");
  Open("\x01\x02");
  EXPECT_EQ(ReasonOfFailure([this] { Repair(); }), "the log holds nothing that could be kept");
  Open("01-05-1999 a\r\n");
  between = [this] {
    EXPECT_EQ(ProcedureTrace, "FixCorruption");
    EXPECT_EQ(host.pointer, MousePointer::Default);
    folder.Put("test.log", "");
  };
  EXPECT_EQ(ReasonOfFailure([this] { Repair(); }), "the log changed while it was read");
  EXPECT_EQ(ProcedureTrace, "CheckEntries");
  EXPECT_EQ(host.pointer, MousePointer::Hourglass);
}

TEST_F(RewriteTest, LimitsAreFailuresThatLeaveTheLogAlone) {
  const std::string line = "01-05-1999 a\r\n";
  std::string many;
  for (int i = 0; i < 32768; ++i) many += line;
  Open(many);
  Purge(6, 6);
  DoOptimize();
  EXPECT_EQ(host.messages.at(0).Title, "Purge Failed");
  EXPECT_EQ(host.messages.at(1).Title, "Optimization Failed");
  EXPECT_EQ(ErrorOf([this] { Repair(); }), Overflow);
  EXPECT_EQ(Log(), many);
  Open(many.substr(line.size()));
  Purge(6, 6);
  EXPECT_EQ(host.messages.size(), 2u) << "32767 lines";
  Open(std::string(3276749, 'x'));
  Repair();
  Open(std::string(3276750, 'x'));
  EXPECT_EQ(ErrorOf([this] { Repair(); }), Overflow);
}

TEST_F(RewriteTest, ALogIsWrittenAnewOnlyWhereNobodyHasSeenOne) {
  const std::string path = folder.Path("new.txt");
  EXPECT_EQ(ErrorOf([&] { WriteLog(path, "text", FileStamp()); }), FileNotFound);
  WriteLog(path, "text");
  EXPECT_EQ(folder.Content("new.txt"), "text");
}

TEST_F(RewriteTest, AFileOfTheToolsOwnIsNotRewritten) {
  const std::string log = "01-05-1999 a\r\n";
  const auto purge = [] { Purge(5, 5); };
  const auto repair = [this] { EXPECT_EQ(ErrorOf([this] { Repair(); }), PermissionDenied); };
  const std::pair<const char*, std::function<void()>> cases[] = {
      {PurgedName, purge},         {SafetyCopyName, purge},
      {OptimizedName, DoOptimize}, {ArchiveSafetyCopyName, DoOptimize},
      {CleanedName, repair},       {RepairedName, repair},
      {SafetyCopyName, repair}};
  for (const auto& [name, tool] : cases) {
    ArchiveOpen = name == std::string(ArchiveSafetyCopyName);
    folder.Put(name, log);
    std::filesystem::create_symlink(folder.Path(name), folder.Path("link"));
    for (const char* path : {name, "link"}) {
      CurrentLogPath = folder.Path(path);
      tool();
      EXPECT_EQ(folder.Content(name), log) << name;
    }
    std::filesystem::remove(folder.Path("link"));
  }
  EXPECT_EQ(host.messages.size(), 8u);
}

TEST_F(RewriteTest, LinkAndModeOfTheLogStay) {
  Open("01-05-1999 a\r\n");
  std::filesystem::permissions(CurrentLogPath, std::filesystem::perms{0664});
  const uid_t owner = geteuid() == 0 ? 1234 : geteuid();  // root alone may give files away
  ASSERT_EQ(::chown(CurrentLogPath.c_str(), owner, static_cast<gid_t>(-1)), 0);
  std::filesystem::create_symlink(CurrentLogPath, folder.Path("link"));
  CurrentLogPath = folder.Path("link");
  Purge(5, 5);
  EXPECT_EQ(Log(), "");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
  struct stat now {};
  EXPECT_EQ(::stat(folder.Path("test.log").c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 07777, 0664u);
  EXPECT_EQ(now.st_uid, owner);
}

}  // namespace qel
