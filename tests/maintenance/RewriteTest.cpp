#include <sys/stat.h>
#include <unistd.h>

#include "maintenance/LogRewrite.h"
#include "maintenance/LogSwap.h"
#include "maintenance/Repair.h"
#include "platform/CodePage.h"
#include "platform/TextConversion.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"

namespace qel {

class RewriteTest : public FreshProgram {
 protected:
  RewriteTest() { AppPath = folder.Path(); }

  void Open(const std::string& log) {
    OpenLog(log);
    ArchiveOpen = false;
  }
  std::string Log() const { return folder.Content("test.log"); }
  static void Purge(int from, int to) { DoPurge(DateSerial(1999, 1, from), DateSerial(1999, 1, to)); }
  void Repair() {
    LogRepair repair([this](const std::optional<std::string>& text, const auto& percent) {
      said.push_back(text.value_or("bar " + NumberText(percent.value_or(0))));
    });
    repair.FixCorruption();
    repair.CheckEntries();
  }

  std::vector<std::string> said;
};

TEST_F(RewriteTest, APurgeTakesWholeDaysAndWhatHasNoDate) {
  const std::string log = "no date\r\n01-05-1999 a\n\n01-06-1999 b\r\n01-07-1999 c\r\n01-06-1999 d";
  const struct {
    int from, to;
    const char* left;
  } cases[] = {
      {5, 5, "01-06-1999 b\r\n01-07-1999 c\r\n01-06-1999 d\r\n"},
      {6, 6, "01-05-1999 a\r\n01-07-1999 c\r\n"},
      {5, 7, ""},
      {8, 9, "01-05-1999 a\r\n01-06-1999 b\r\n01-07-1999 c\r\n01-06-1999 d\r\n"},
  };
  for (const auto& c : cases) {
    Open(log);
    Purge(c.from, c.to);
    EXPECT_EQ(Log(), c.left) << c.from << " to " << c.to;
    EXPECT_EQ(folder.Content("ModemLog.old"), log);
    EXPECT_FALSE(folder.Has("ModemLog.pge"));
  }
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.transcript.back(), "status: Finished Purging Records!");
}

TEST_F(RewriteTest, OptimizingKeepsInCapitalsWhatTheAnalysisReads) {
  const std::string time = "01-05-1999 10:00:00.00 - ";
  std::string log, expected;
  for (const auto& [text, kept] : Cases<2>("maintenance/Kept")) {
    log += time + text + "\r\n";
    if (kept == "yes") expected += UpperCase(time + text) + "\r\n";
  }
  Open(log + "Recv: ATDT5550142\r\n\r\n");
  DoOptimize();
  EXPECT_EQ(Log(), expected);
  DoOptimize();
  EXPECT_EQ(Log(), expected) << "a second time changes nothing";
  ArchiveOpen = true;
  folder.Put("ModemLog.old", "of the default log");
  DoOptimize();
  EXPECT_EQ(folder.Content("ModemLog.old"), "of the default log");
  EXPECT_EQ(folder.Content("ModemLogArchive.old"), expected);
}

TEST_F(RewriteTest, ARepairKeepsPrintableLinesWithADate) {
  const std::string line = "01-05-1999 10:00:00.00 - good";
  const struct {
    std::string log, repaired;
  } cases[] = {
      {line + "\r\n", line + "\r\n"},
      {line, line.substr(0, line.size() - 1) + "\r\n"},
      {line + "\r\n\r\n  \r\nno date\r\n" + line + "\r\n", line + "\r\n" + line + "\r\n"},
      {"01-05-\t1999\x01 a\x7F\x80\xFF\r\n", "01-05-1999 a\r\n"},
      {std::string("01-05-1999\0 a\r\n", 15) + line + "\r\n", "01-05-1999 a\r\n" + line + "\r\n"},
  };
  for (const auto& c : cases) {
    Open(c.log);
    Repair();
    EXPECT_EQ(Log(), c.repaired);
    EXPECT_EQ(folder.Content("ModemLog.old"), c.log);
    EXPECT_FALSE(folder.Has("ModemLog.fx2"));
    EXPECT_EQ(std::filesystem::status(folder.Path("ModemLog.fx1")).permissions(),
              std::filesystem::perms{0600});
  }
  EXPECT_EQ(said.back(), "bar 100");
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
  Open(std::string(3276750, 'x'));
  EXPECT_EQ(ErrorOf([this] { Repair(); }), Overflow);
}

TEST_F(RewriteTest, AFileOfTheToolsOwnIsNotRewritten) {
  const std::string log = "01-05-1999 a\r\n";
  const auto purge = [] { Purge(5, 5); };
  const auto repair = [this] { EXPECT_EQ(ErrorOf([this] { Repair(); }), PermissionDenied); };
  const struct {
    const char* name;
    bool archive;
    std::function<void()> tool;
  } cases[] = {
      {PurgedName, false, purge},
      {SafetyCopyName, false, purge},
      {OptimizedName, true, DoOptimize},
      {CleanedName, false, repair},
      {ArchiveSafetyCopyName, true, DoOptimize},
      {RepairedName, false, repair},
      {SafetyCopyName, false, repair},
  };
  for (const auto& c : cases) {
    folder.Put(c.name, log);
    for (const bool linked : {false, true}) {
      CurrentLogPath = folder.Path(linked ? "link" : c.name);
      if (linked) std::filesystem::create_symlink(folder.Path(c.name), CurrentLogPath);
      ArchiveOpen = c.archive;
      c.tool();
      EXPECT_EQ(folder.Content(c.name), log) << c.name;
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
