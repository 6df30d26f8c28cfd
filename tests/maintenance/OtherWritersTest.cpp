#include <atomic>
#include <chrono>
#include <fcntl.h>
#include <random>
#include <thread>

#include "maintenance/ToolRuns.h"

namespace qel {
namespace {

using std::chrono::microseconds;

// Another program that appends to the log: by its name each time, making it where it is missing, or by a
// descriptor that it holds. Where it may be held back it has a thread to wait in.
class Writer {
 public:
  Writer(std::string path, bool holds) : path(std::move(path)), held(holds ? Opened() : -1) {}
  ~Writer() { Finish(); }

  // Returns while the writer waits.
  void Write(std::string line) {
    thread = std::thread([this, line = std::move(line)] { WriteNow(line); });
    for (int i = 0; i < 30 && !done; ++i) std::this_thread::sleep_for(microseconds(100));
  }
  void WriteNow(const std::string& line) {
    const int file = held >= 0 ? held : Opened();
    EXPECT_EQ(::write(file, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    if (held < 0) ::close(file);
    done = true;
  }
  bool HasWritten() const { return done; }
  void Finish() {
    if (thread.joinable()) thread.join();
    if (held >= 0) ::close(std::exchange(held, -1));
  }

 private:
  int Opened() const { return ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666); }
  std::string path;
  int held;
  std::thread thread;
  std::atomic<bool> done = false;
};

class OtherWritersTest : public ToolRuns {
 protected:
  bool Has(const std::string& text, const std::string& line) const {
    return text.find(line) != std::string::npos;
  }
  // In the log; or the run failed, and a message names the file that has it.
  bool IsAccountedFor(const std::string& line, bool succeeded) const {
    if (Has(Log(), line)) return true;
    return !succeeded && Has(Kept(), line) && std::ranges::any_of(host.messages, [this](const Message& m) {
      return Has(m.Text, CurrentLogPath + ".kept\r\n");
    });
  }
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
  const std::string line = "01-06-1999 11:00:00.00 - READS 3\r\n";
  const DiskInPlace inPlace(disk);
  for (const Tool& tool : Tools) {
    for (const auto& w : writers) {
      disk.NoLeases = w.noLeases;
      disk.Before = nullptr;
      Begin();
      disk.Mend();
      ASSERT_TRUE(Run(tool));
      const int operations = disk.Operations();
      int succeeded = 0;
      for (int n = 1; n <= operations - w.unwatched; ++n) {
        Begin();
        disk.Mend();
        Writer writer(CurrentLogPath, w.holds);
        disk.Before = [&](int operation) {
          if (operation != n) return;
          w.holds || w.noLeases ? writer.WriteNow(line) : writer.Write(line);
        };
        const bool ran = Run(tool);
        disk.Before = nullptr;
        writer.Finish();
        succeeded += ran;
        if (!writer.HasWritten()) continue;  // the run has failed before it came to that
        EXPECT_TRUE(IsAccountedFor(line, ran)) << tool.name << ", " << w.name << ", operation " << n;
        EXPECT_TRUE(ran || Has(Log(), log) || Has(Kept(), log)) << tool.name << ", " << w.name << n;
      }
      EXPECT_TRUE(w.holds ? w.noLeases || succeeded == 0 : succeeded > 0) << tool.name << ", " << w.name;
    }
  }
}

// Does something of another's before a renaming to a path.
class Meddler : public TwoVolumes {
 public:
  int RenameNew(const std::string& from, const std::string& to) override {
    moved += to.substr(to.rfind('.'));
    if (to == at) std::exchange(deed, [] {})();
    return TwoVolumes::RenameNew(from, to);
  }
  std::string at, moved;
  std::function<void()> deed = [] {};
};

TEST_P(OtherWritersTest, WhatHappensInTheMidstHasOneOutcome) {
  const std::string line = "01-06-1999 11:00:00.00 - READS 3\r\n", path = CurrentLogPath;
  const std::string result = ResultOf(Tools[0]);
  std::optional<Writer> writer;
  const auto append = [&] { writer->WriteNow(line); };
  const struct {
    std::string at;
    std::function<void()> deed;
    std::string log, kept, safety, moved;
  } cases[] = {
      {path + ".qel-new", append, log + line, "", "older", ".qel-new"},
      {path + ".qel-old", append, log + line, "", "older", ".qel-new.qel-old.txt"},
      {path, append, result, log + line, "older", ".qel-new.qel-old.txt.txt.kept"},
      {path, [&] { MendInterruptedSwap(path); }, result, "", log,
       ".qel-new.qel-old.txt"},  // another QEL starts
      {"", [] {}, result, "", log, ".qel-new.qel-old.txt"},
  };
  Meddler meddler;
  meddler.NoLeases = true;
  const DiskInPlace inPlace(meddler);
  for (const auto& c : cases) {
    Begin();
    folder.Put("app/ModemLog.old", "older");
    writer.emplace(path, true);
    meddler.at = c.at;
    meddler.deed = c.deed;
    meddler.moved.clear();
    Purge();
    EXPECT_EQ(Log(), c.log) << c.moved;
    EXPECT_EQ(Kept(), c.kept) << c.moved;
    EXPECT_EQ(folder.Content("app/ModemLog.old"), c.safety) << c.moved;
    EXPECT_EQ(meddler.moved, c.moved);
  }
  {
    const LogSwap ofAnotherQEL(path);
    EXPECT_FALSE(Purge());
  }
  // As a run leaves it that ended between giving the second name and taking the first.
  std::filesystem::create_hard_link(path, path + ".qel-old");
  EXPECT_TRUE(Purge() && Kept().empty());
}

TEST_P(OtherWritersTest, NoLineIsMissingWithoutAWordAfterManyRewrites) {
  const char* const wanted = std::getenv("QEL_REWRITES");
  const int rewrites = wanted ? std::atoi(wanted) : 40;
  const DiskInPlace inPlace(disk);
  Begin();
  const auto begun = std::chrono::steady_clock::now();
  ASSERT_TRUE(Optimize());
  const auto oneRewrite = std::chrono::steady_clock::now() - begun;
  std::atomic<bool> stop = false;
  int written = 0;
  std::thread driver([&] {
    std::minstd_rand random(1);
    std::uniform_real_distribution<double> rewrites(0, 6);  // from one line to the next
    Writer writer(CurrentLogPath, false);
    for (; !stop; ++written) {
      writer.WriteNow("01-06-1999 11:00:00.00 - READS #" + std::to_string(written) + " \r\n");
      std::this_thread::sleep_for(oneRewrite * rewrites(random));
    }
  });
  int succeeded = 0;
  for (int i = 0; i < rewrites; ++i) succeeded += Optimize();
  stop = true;
  driver.join();
  std::string all = Log();
  for (const Message& message : host.messages)
    if (const auto at = message.Text.find(folder.Path()); at != std::string::npos)
      all += ReadWholeFile(message.Text.substr(at, message.Text.find('\r', at) - at));
  for (int i = 0; i < written; ++i) EXPECT_TRUE(Has(all, "#" + std::to_string(i) + " ")) << i;
  EXPECT_GT(succeeded, 0) << "of " << rewrites << ", " << written << " lines";
}

INSTANTIATE_TEST_SUITE_P(Volumes, OtherWritersTest, ::testing::Values("app", "far"));

}  // namespace
}  // namespace qel
