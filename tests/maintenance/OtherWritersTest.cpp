#include "maintenance/ToolRuns.h"

namespace qel {
namespace {

class OtherWritersTest : public ToolRuns {
 protected:
  // In the log; or the run failed, and a message names the file that has it.
  bool IsAccountedFor(const std::string& text, bool succeeded) const {
    if (Log().find(text) != std::string::npos) return true;
    return !succeeded && Kept().find(text) != std::string::npos &&
           std::ranges::any_of(host.messages, [this](const Message& m) {
             return m.Text.find(CurrentLogPath + ".kept\r\n") != std::string::npos;
           });
  }
  const std::string line = "01-06-1999 11:00:00.00 - READS 3\r\n";
};

TEST_P(OtherWritersTest, ALineWrittenBeforeAnyOperationIsInTheLogOrTheRunSaysSo) {
  // Where writers are not held back and one holds the log open, nobody looks after the last four operations.
  const struct {
    const char* name;
    bool holds, noLeases;
    int unwatched;
  } writers[] = {{"by name", false, false, 0},
                 {"by name, not held back", false, true, 0},
                 {"who holds it", true, false, 0},
                 {"who holds it, unseen", true, true, 4}};
  for (const Tool& tool : Tools) {
    for (const auto& w : writers) {
      disk.NoLeases = w.noLeases;
      disk.Before = nullptr;
      Begin();
      ASSERT_TRUE(Run(tool));
      const int operations = disk.Operations();
      int succeeded = 0;
      for (int n = 1; n <= operations - w.unwatched; ++n) {
        const std::string when = tool.name + std::string(", ") + w.name + ", operation " + std::to_string(n);
        Begin();
        if (w.holds) memory.Hold(CurrentLogPath);
        bool written = false;
        disk.Before = [&](int operation) {
          if (operation != n) return;
          w.holds ? memory.AppendToHeld(line) : memory.Append(CurrentLogPath, line);
          written = true;
        };
        const bool ran = Run(tool);
        disk.Before = nullptr;
        succeeded += ran;
        if (!written) continue;  // the run has failed before it came to that
        EXPECT_TRUE(IsAccountedFor(line, ran)) << when;
        EXPECT_TRUE(ran || IsAccountedFor(log, ran)) << when;
      }
      EXPECT_TRUE(w.holds ? w.noLeases || succeeded == 0 : succeeded > 0) << tool.name << ", " << w.name;
    }
  }
}

// Does something of another's before a renaming to a path.
class Meddler : public TwoVolumes {
 public:
  using TwoVolumes::TwoVolumes;
  int RenameNew(const std::string& from, const std::string& to) override {
    moved += to.substr(to.rfind('.'));
    if (to == at) std::exchange(deed, [] {})();
    return TwoVolumes::RenameNew(from, to);
  }
  std::string at, moved;
  std::function<void()> deed = [] {};
};

TEST_P(OtherWritersTest, WhatHappensInTheMidstHasOneOutcome) {
  const std::string path = CurrentLogPath, result = ResultOf(Tools[0]);
  const auto append = [&] { memory.AppendToHeld(line); };
  const auto anotherStarts = [&] {
    MendInterruptedSwap(path);
    EXPECT_TRUE(host.messages.empty()) << "another QEL leaves alone what is in hand";
  };
  const char* const changed = "the log changed while it was read";
  const struct {
    std::string at;
    std::function<void()> deed;
    std::string log, kept, safety, moved, reason;
  } cases[] = {
      {path + ".qel-new", append, log + line, "", "older", ".qel-new", changed},
      {path + ".qel-old", append, log + line, "", "older", ".qel-new.qel-old.txt", changed},
      {path, append, result, log + line, "older", ".qel-new.qel-old.txt.txt.kept", changed},
      {path, [&] { memory.Append(path, line); }, line, log, "older", ".qel-new.qel-old.txt.txt.kept",
       "another program began a new log meanwhile"},
      {path, anotherStarts, result, "", log, ".qel-new.qel-old.txt", ""},
      {"", [] {}, result, "", log, ".qel-new.qel-old.txt", ""},
  };
  Meddler meddler(memory);
  meddler.NoLeases = true;
  const DiskInPlace inPlace(meddler);
  for (const auto& c : cases) {
    Begin();
    memory.Put("/app/ModemLog.old", "older");
    memory.Hold(path);
    meddler.at = c.at;
    meddler.deed = c.deed;
    meddler.moved.clear();
    Purge();
    EXPECT_EQ(Log(), c.log) << c.moved;
    EXPECT_EQ(Kept(), c.kept) << c.moved;
    EXPECT_EQ(Safety(), c.safety) << c.moved;
    EXPECT_EQ(meddler.moved, c.moved);
    EXPECT_EQ(reason, c.reason) << c.moved;
  }
  {
    const LogSwap ofAnotherQEL(path);
    EXPECT_FALSE(Purge());
    EXPECT_EQ(reason, "another QEL is rewriting the log");
  }
  meddler.NoLeases = false;
  memory.Hold(path);
  EXPECT_FALSE(Purge());
  EXPECT_EQ(reason, "another program holds the log open for writing");
  Begin();
  // As a run leaves it that ended between giving the second name and taking the first.
  memory.PutLink(path, path + ".qel-old");
  EXPECT_TRUE(Purge() && Kept().empty());
}

INSTANTIATE_TEST_SUITE_P(Volumes, OtherWritersTest, ::testing::Values("/app", "/far"));

}  // namespace
}  // namespace qel
