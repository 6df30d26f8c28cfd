// Any bytes as a log under one of the tools, on a disk of which any operation fails, once or from then on,
// and whose power may fail behind that: the log or its safety copy is whole, and holds all that the tool has
// to keep.

#include "FuzzedProgram.h"
#include "maintenance/ClearAndArchive.h"
#include "maintenance/Optimize.h"
#include "maintenance/Purge.h"
#include "maintenance/Repair.h"
#include "modemlog/LogFile.h"
#include "modemlog/LogLine.h"
#include "modemlog/NewLog.h"
#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {
namespace {

enum Tool { Purge, Optimize, Repair, Clear, Tools };

struct Plan {
  Tool tool;
  Date from, to;  // of the purge

  explicit Plan(Choices& choices)
      : tool(static_cast<Tool>(choices.Below(Tools))),
        from(DateSerial(1999, 1, 1) + choices.Below(31)),
        to(from + choices.Below(4)) {}

  void Run(const Session& session) const {
    const LogInHand log = session.InHand();
    if (tool == Purge) return DoPurge(log, from, to);
    if (tool == Optimize) return DoOptimize(log, session.settings, session.logFile.ArchiveOpen);
    ReasonOfFailure([&] {
      if (tool == Clear) return ClearLog(log.Log, std::nullopt);
      LogRepair repair(log, CurrentDisplay());
      repair.FixCorruption();
      repair.CheckEntries();
    });
  }

  // What becomes of a log, said as plainly as can be.
  std::string ResultOf(const Settings& settings, std::string log) const {
    if (tool == Clear) return NewLogEntry();
    if (tool == Repair) {
      std::erase_if(log, [](char c) { return (c < ' ' || c > '~') && c != '\r' && c != '\n'; });
      if (!log.empty()) log.pop_back();
    }
    std::string result;
    for (std::string line; !log.empty(); log.erase(0, line.size() + 1)) {
      line = log.substr(0, log.find('\n'));
      std::string text = line;
      const bool hasEnd = line.size() < log.size();
      if (hasEnd && text.ends_with('\r')) text.pop_back();
      if (tool == Repair && text.ends_with('\r')) text.pop_back();
      if (tool == Optimize) text = UpperCase(text);
      if (IsKept(settings, text)) result += text + NewLine;
    }
    return result;
  }

 private:
  bool IsKept(const Settings& settings, const std::string& text) const {
    const Date date = GetLineDate(text);
    if (tool == Repair) return text.find_first_not_of(' ') != std::string::npos && date != 0;
    if (tool == Purge) return date != 0 && (date < from || date > to);
    if (text.find(settings.ModemDial) != std::string::npos)
      return text.find_first_of("0123456789", 25) != std::string::npos;
    for (const auto& response : {settings.ModemAnswer, settings.ModemConnect, settings.ModemUserDisconnect,
                                 settings.ModemHostDisconnect, settings.ModemReads, settings.ModemWrites})
      if (text.find(response) != std::string::npos) return true;
    return false;
  }
};

}  // namespace
}  // namespace qel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qel;
  static FuzzedProgram program;
  const auto content = [](const char* name) { return program.Memory.Content(name); };
  Choices choices(data, size);
  const Plan plan(choices);
  const unsigned ending = choices.Below(3), operation = choices.Below(200);
  const std::string log(choices.Rest()), result = plan.ResultOf(program.Session.settings, log);
  program.OpenLog(log);
  ending == 0 ? program.Disk.FailNth(static_cast<int>(operation))
              : program.Disk.FailFrom(static_cast<int>(operation));
  plan.Run(program.Session);
  const bool failed = program.Disk.Failed();
  program.Disk.Mend();
  if (ending == 2) program.Memory.FailPower();
  MendInterruptedSwap(program.Session.logFile.CurrentLogPath);
  const std::string now = content("/app/log.txt");
  const bool isSafe =
      plan.tool == Clear || content("/app/ModemLog.old") == log || content("/app/log.txt.kept") == log;
  Check(now == log || (now == result && isSafe), "the log or its safety copy is whole");
  const bool nothingToKeep = plan.tool == Repair && now == log;
  Check(failed || nothingToKeep || now == result, "a run that nothing stops does what it has to");
  plan.Run(program.Session);
  if (plan.tool == Purge || plan.tool == Optimize)
    Check(content("/app/log.txt") == result, "the next run finishes the work, and one more changes nothing");
  return 0;
}
