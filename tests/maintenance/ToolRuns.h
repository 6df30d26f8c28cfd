// All that rewrites a log, run on one that lies with the program's folder or on another volume.
#pragma once

#include "maintenance/LinePass.h"
#include "maintenance/LogRewrite.h"
#include "maintenance/LogSwap.h"
#include "maintenance/Repair.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"

namespace qel {

class ToolRuns : public FreshProgram, public ::testing::WithParamInterface<const char*> {
 protected:
  ToolRuns() {
    AppPath = folder.Path("app");
    disk.Flushes = false;
    SetCurrentLog(folder.Path(GetParam()) + "/", "log.txt");
  }

  // Each is false where the run failed and said so.
  bool Purge() {
    return Told([] { DoPurge(DateSerial(1999, 1, 5), DateSerial(1999, 1, 5)); });
  }
  bool Optimize() { return Told(DoOptimize); }
  bool Repair() {
    return ReasonOfFailure([] {
             LogRepair repair([](const auto&, const auto&) {});
             repair.FixCorruption();
             repair.CheckEntries();
           })
        .empty();
  }
  // As the viewer and the command to clear do, with the log as they have seen it.
  bool Save() {
    return ReasonOfFailure([this] { WriteLog(CurrentLogPath, "saved\r\n", seen); }).empty();
  }

  struct Tool {
    const char* name;
    bool (ToolRuns::*run)();
  };
  static constexpr Tool Tools[] = {{"purge", &ToolRuns::Purge},
                                   {"optimize", &ToolRuns::Optimize},
                                   {"repair", &ToolRuns::Repair},
                                   {"save", &ToolRuns::Save}};

  bool Run(const Tool& tool) { return (this->*tool.run)(); }
  std::string Log() const { return folder.Content(GetParam() + std::string("/log.txt")); }
  std::string Kept() const { return folder.Content(GetParam() + std::string("/log.txt.kept")); }
  void Begin() {
    folder.Empty();
    for (const char* name : {"app", "far"}) std::filesystem::create_directory(folder.Path(name));
    folder.Put(GetParam() + std::string("/log.txt"), log);
    seen = StampOf(CurrentLogPath);
    host.messages.clear();
  }
  // What the tool makes of the log when nothing goes wrong.
  std::string ResultOf(const Tool& tool) {
    Begin();
    Run(tool);
    return Log();
  }

  const std::string log = "01-05-1999 10:00:00.00 - READS 1\r\n01-06-1999 10:00:00.00 - Reads 2\r\n";
  FileStamp seen;
  TwoVolumes disk;

 private:
  bool Told(const std::function<void()>& run) {
    host.transcript.clear();
    run();
    return !host.Showed("message: Purge Failed") && !host.Showed("message: Optimization Failed");
  }
};

}  // namespace qel
