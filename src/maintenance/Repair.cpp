#include "maintenance/Repair.h"

#include <string_view>

#include "core/ProgramState.h"
#include "maintenance/LogSwap.h"
#include "modemlog/LogLine.h"
#include "modemlog/LogStatistics.h"
#include "platform/CodePage.h"
#include "platform/Host.h"
#include "platform/TextConversion.h"

namespace qel {

namespace {

bool IsKept(char byte) { return (byte >= 32 && byte <= 126) || byte == '\r' || byte == '\n'; }

Int16 PercentOf(Int32 part, Int32 whole) { return Int16(100.0 * int{part} / int{whole}); }

}  // namespace

void LogRepair::FixCorruption() {
  SetTrace("frmFileRepair", "FixCorruption");
  RefuseOwnFile({CleanedName, RepairedName, SafetyCopyName});
  read = StampOf(CurrentLogPath);
  LogLength = Int32(read.Length);
  const Int16 interval(LogLength / 100.0);
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  progress("Please Wait.... Reading Modem Log", 0);
  const std::string log = ReadWholeFile(CurrentLogPath);
  std::string kept;
  kept.reserve(log.size());
  Int32 position = 0;
  for (const char byte : log) {
    if (IsKept(byte)) kept += byte;
    ++position;
    if (interval <= 0 || position % interval != 0) continue;
    const Int16 percent = PercentOf(position, LogLength);
    progress("Repairing Modem Log......... " + NumberText(percent) + "%", percent);
  }
  if (kept.empty()) Raise(SubscriptOutOfRange);
  kept.pop_back();
  const std::string path = WorkingPath(CleanedName);
  if (PathExists(path)) RemoveFile(path);
  FileWriter cleaned(path);
  cleaned.Write(kept);
  cleaned.Close();
  CloseAllFiles();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void LogRepair::CheckEntries() {
  SetTrace("frmFileRepair", "CheckEntries");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  LogLength = Int32(FileLength(CurrentLogPath));
  LineReader cleaned(WorkingPath(CleanedName));
  FileWriter repaired(WorkingPath(RepairedName));
  Int16 lines, told = -1;
  Int32 bytes;
  for (std::string_view line; cleaned.Next(line);) {
    ++lines;
    bytes += Int32(line.size() + 2);
    if (line.ends_with('\r')) line.remove_suffix(1);  // the last line has lost the rest of its end
    if (!Trim(line).empty() && GetLineDate(line) != 0) repaired.Write(std::string(line) + NewLine);
    const Int16 percent = LogLength > 0 ? PercentOf(bytes, LogLength) : Int16(0);
    if (percent == told) continue;
    told = percent;
    progress("Checking Entries......... " + NumberText(percent) + "%", percent);
  }
  progress("Checking Entries......... 100%", 100);
  cleaned.Close();
  repaired.Close();
  SwapInLog(WorkingPath(RepairedName), WorkingPath(SafetyCopyName), read);
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
