#include "maintenance/Repair.h"

#include "core/Surroundings.h"
#include "modemlog/LogLine.h"
#include "platform/Files.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr char CleanedName[] = "ModemLog.fx1";   // bad bytes removed; stays
constexpr char RepairedName[] = "ModemLog.fx2";  // lines without a date removed; becomes the log

bool IsKept(char byte) { return (byte >= 32 && byte <= 126) || byte == '\r' || byte == '\n'; }

std::optional<std::string> KeepDated(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);  // the last line has lost the rest of its end
  if (Trim(line).empty() || GetLineDate(line) == 0) return std::nullopt;
  return std::string(line);
}

// Bytes between two looks at how far the first pass is.
Int16 UpdateInterval(Int32 length) {
  constexpr int TooLong = 3276750;
  if (length >= TooLong) throw LogFailure(Overflow, "the log is longer than 3,276,749 bytes");
  return Int16(length / 100.0);
}

}  // namespace

void LogRepair::FixCorruption() {
  SetTrace("frmFileRepair", "FixCorruption");
  inHand.RefuseOwnFile({CleanedName, RepairedName, SafetyCopyName});
  rewrite.emplace(inHand, RepairedName, SafetyCopyName);
  const Int32 length(FileLength(inHand.Log));
  const int interval = UpdateInterval(length);
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  display.StatusText("Please Wait.... Reading Modem Log");
  CurrentHost().Yield();
  const std::string log = ReadWholeFile(inHand.Log);
  std::string kept;
  PercentDone done(display, "Repairing Modem Log......... ");
  int position = 0;
  for (const char byte : log) {
    if (IsKept(byte)) kept += byte;
    if (++position; interval > 0 && position % interval == 0) done.Tell(position, int{length});
  }
  if (kept.empty()) throw LogFailure(SubscriptOutOfRange, "the log holds nothing that could be kept");
  kept.pop_back();
  WorkingFile cleaned(inHand.WorkingPath(CleanedName));
  FileWriter writer(cleaned.Path, WorkingFile::Mode);
  writer.Write(kept);
  writer.Close();
  cleaned.Keep();
  CloseAllFiles();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void LogRepair::CheckEntries() {
  SetTrace("frmFileRepair", "CheckEntries");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  const Int32 length(FileLength(inHand.Log));
  PercentDone done(display, "Checking Entries......... ");
  rewrite->WriteLines(inHand.WorkingPath(CleanedName), KeepDated,
                      [&](Int16, std::int64_t bytes) { done.Tell(static_cast<double>(bytes), int{length}); });
  display.Progress(100);
  CurrentHost().Yield();
  rewrite->PutInPlace();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
