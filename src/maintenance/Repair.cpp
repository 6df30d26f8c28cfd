#include "maintenance/Repair.h"

#include <string_view>

#include "core/ProgramState.h"
#include "core/Surroundings.h"
#include "maintenance/LinePass.h"
#include "modemlog/LogExamination.h"
#include "modemlog/LogLine.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

bool IsKept(char byte) { return (byte >= 32 && byte <= 126) || byte == '\r' || byte == '\n'; }

Int16 PercentOf(Int32 part, Int32 whole) { return Int16(100.0 * int{part} / int{whole}); }

}  // namespace

void LogRepair::FixCorruption() {
  SetTrace("frmFileRepair", "FixCorruption");
  RefuseOwnFile({CleanedName, RepairedName, SafetyCopyName});
  lock.emplace(WorkingPath(LockName));
  swap.emplace(logFile.CurrentLogPath);
  findings.LogLength = Int32(FileLength(logFile.CurrentLogPath));
  const Int16 interval = UpdateInterval();
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  progress("Please Wait.... Reading Modem Log", std::nullopt);
  const std::string log = ReadWholeFile(logFile.CurrentLogPath);
  std::string kept;
  Int32 position = 0;
  for (const char byte : log) {
    if (IsKept(byte)) kept += byte;
    ++position;
    if (interval <= 0 || position % interval != 0) continue;
    const Int16 percent = PercentOf(position, findings.LogLength);
    progress("Repairing Modem Log......... " + NumberText(percent) + "%", percent);
  }
  if (kept.empty()) throw LogFailure(SubscriptOutOfRange, "the log holds nothing that could be kept");
  kept.pop_back();
  WorkingFile cleaned(CleanedName);
  FileWriter writer(cleaned.Path, WorkingFileMode);
  writer.Write(kept);
  writer.Close();
  cleaned.Keep();
  CloseAllFiles();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void LogRepair::CheckEntries() {
  SetTrace("frmFileRepair", "CheckEntries");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  findings.LogLength = Int32(FileLength(logFile.CurrentLogPath));
  std::optional<Int16> told;
  Int32 bytes;
  const auto keepDated = [](std::string_view line) -> std::optional<std::string> {
    if (line.ends_with('\r')) line.remove_suffix(1);  // the last line has lost the rest of its end
    if (Trim(line).empty() || GetLineDate(line) == 0) return std::nullopt;
    return std::string(line);
  };
  const WorkingFile repaired(RepairedName);
  RewriteLines(WorkingPath(CleanedName), repaired.Path, keepDated, [&](Int16, std::size_t length) {
    bytes += Int32(length + 2);
    const Int16 percent = findings.LogLength > 0 ? PercentOf(bytes, findings.LogLength) : Int16(0);
    if (percent == told) return;
    told = percent;
    progress("Checking Entries......... " + NumberText(percent) + "%", percent);
  });
  progress(std::nullopt, 100);
  swap->PutInPlace(repaired.Path, WorkingPath(SafetyCopyName));
  CurrentHost().SetMousePointer(MousePointer::Default);
}

// In bytes.
Int16 LogRepair::UpdateInterval() const {
  constexpr int TooLong = 3276750;
  if (findings.LogLength >= TooLong) throw LogFailure(Overflow, "the log is longer than 3,276,749 bytes");
  return Int16(findings.LogLength / 100.0);
}

}  // namespace qel
