#include <map>

#include "journeys/Script.h"
#include "maintenance/ToolRuns.h"
#include "support/Text.h"

namespace qel {
namespace {

class OtherWritersTest : public ToolRuns {
 protected:
  // In the log; or the run failed, and a message names the file that has it.
  bool IsAccountedFor(const std::string& text, bool succeeded) const {
    if (Log().find(text) != std::string::npos) return true;
    return !succeeded && Kept().find(text) != std::string::npos &&
           std::ranges::any_of(host.messages, [this](const Message& m) {
             return m.Text.find(logFile.CurrentLogPath + ".kept\r\n") != std::string::npos;
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
        if (w.holds) memory.Hold(logFile.CurrentLogPath);
        bool written = false;
        disk.Before = [&](int operation) {
          if (operation != n) return;
          w.holds ? memory.AppendToHeld(line) : memory.Append(logFile.CurrentLogPath, line);
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
    moved += " " + to.substr(to.rfind('.'));
    if (to == at) std::exchange(deed, [] {})();
    return TwoVolumes::RenameNew(from, to);
  }
  std::string at, moved;
  std::function<void()> deed = [] {};
};

// The log is one that another program holds open, on a volume where writers are not held back.
TEST_P(OtherWritersTest, WhatHappensInTheMidstHasOneOutcome) {
  Meddler meddler(memory);
  const DiskInPlace inPlace(meddler);
  std::optional<LogSwap> another;
  const std::map<std::string, std::function<void()>> deeds = {
      {"nothing", [] {}},
      {"append", [this] { memory.AppendToHeld(line); }},
      {"begin", [this] { memory.Append(logFile.CurrentLogPath, line); }},
      {"another-starts", [this] { MendInterruptedSwap(logFile.CurrentLogPath); }},
      {"another-rewrites", [this, &another] { another.emplace(logFile.CurrentLogPath); }},
      {"hold-back", [&meddler] { meddler.NoLeases = false; }},
      {"link", [this] { memory.PutLink(logFile.CurrentLogPath, logFile.CurrentLogPath + ".qel-old"); }}};
  ExpectScript("maintenance/other-writers.tools", [&](Act& act) {
    Begin();
    memory.Put("/app/ModemLog.old", "older");
    memory.Hold(logFile.CurrentLogPath);
    meddler.NoLeases = true;
    meddler.moved.clear();
    meddler.at = logFile.CurrentLogPath + (act.WordOr(1, "log") == "log" ? "" : act.Word(1));
    meddler.deed = deeds.at(act.Words[0]);
    if (act.Words.size() == 1) std::exchange(meddler.deed, [] {})();
    Purge();
    another.reset();
    act.Now = {"moved" + meddler.moved, "log " + Folded(Log()), "safety copy " + Folded(Safety())};
    if (!Kept().empty()) act.Now.push_back("kept " + Folded(Kept()));
    if (!reason.empty()) act.Now.push_back("failed: " + reason);
    for (const Message& message : host.messages) act.Now.push_back("message: " + message.Title);
  });
}

INSTANTIATE_TEST_SUITE_P(Volumes, OtherWritersTest, ::testing::Values("/app", "/far"));

}  // namespace
}  // namespace qel
