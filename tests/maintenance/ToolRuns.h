// All that rewrites a log, run in memory on one that lies with the program's folder or on another volume.
#pragma once

#include "core/Surroundings.h"
#include "maintenance/Optimize.h"
#include "maintenance/Purge.h"
#include "maintenance/Repair.h"
#include "modemlog/LogFile.h"
#include "support/FailingDisk.h"
#include "support/FreshProgram.h"
#include "support/MemoryDisk.h"

namespace qel {

class ToolRuns : public FreshProgram, public Display, public ::testing::WithParamInterface<const char*> {
 protected:
  ToolRuns() {
    places.AppPath = "/app";
    session->SetCurrentLog(GetParam() + std::string("/"), "log.txt");
  }

  void WorkFailed(const std::string& why) override { reason = why; }
  std::string reason;  // of the latest failure of a purge or an optimizing

  // Each is false where the run failed and said so.
  bool Purge() {
    reason.clear();
    DoPurge(session->InHand(), DateSerial(1999, 1, 5), DateSerial(1999, 1, 5));
    return reason.empty();
  }
  bool Optimize() {
    reason.clear();
    DoOptimize(session->InHand(), settings, logFile.ArchiveOpen);
    return reason.empty();
  }
  bool Repair() {
    return ReasonOfFailure([this] {
             const LogInHand inHand = session->InHand();
             LogRepair repair(inHand, *this);
             repair.FixCorruption();
             repair.CheckEntries();
           })
        .empty();
  }
  // As the viewer and the command to clear do, with the log as they have seen it.
  bool Save() {
    return ReasonOfFailure([this] { WriteLog(logFile.CurrentLogPath, "saved\r\n", seen); }).empty();
  }

  struct Tool {
    const char* name;
    bool (ToolRuns::*run)();
    const char* workingFile;
  };
  static constexpr Tool Tools[] = {{"purge", &ToolRuns::Purge, "/app/ModemLog.pge"},
                                   {"optimize", &ToolRuns::Optimize, "/app/ModemLog.opt"},
                                   {"repair", &ToolRuns::Repair, "/app/ModemLog.fx2"},
                                   {"save", &ToolRuns::Save, ""}};

  bool Run(const Tool& tool) { return (this->*tool.run)(); }
  std::string Log() const { return memory.Content(logFile.CurrentLogPath); }
  std::string Kept() const { return memory.Content(logFile.CurrentLogPath + ".kept"); }
  std::string Safety() const { return memory.Content("/app/ModemLog.old"); }
  void Begin() {
    memory.Empty();
    for (const char* name : {"/app", "/far"}) memory.PutFolder(name);
    memory.Put(logFile.CurrentLogPath, log);
    seen = StampOf(logFile.CurrentLogPath);
    host.messages.clear();
    disk.Mend();
  }
  // What the tool makes of the log when nothing goes wrong.
  std::string ResultOf(const Tool& tool) {
    Begin();
    EXPECT_TRUE(Run(tool)) << tool.name;
    return Log();
  }

  const std::string log = "01-05-1999 10:00:00.00 - READS 1\r\n01-06-1999 10:00:00.00 - Reads 2\r\n";
  FileStamp seen;
  MemoryDisk memory;
  TwoVolumes disk{memory};
  const DiskInPlace inPlace{disk};
  const Meanwhile<Display*> here{CurrentSurroundings().Display, this};
};

}  // namespace qel
