#include <cmath>
#include <optional>

#include "analysis/ConnectionClose.h"
#include "analysis/Process.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "analysis/Warnings.h"
#include "core/Display.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "modemlog/LogStatistics.h"
#include "platform/Files.h"
#include "platform/Host.h"
#include "settings/Settings.h"

namespace qel {

namespace {

void MakeArrays() {
  StepTrace = "Service Arrays";
  Attempt([] { ServiceTotals.Make(MaxServices); });
  StepTrace = "Connection Arrays";
  Attempt([] { Connections.Make(MaxConnections); });
  StepTrace = "Penalty Arrays";
  Attempt([] { Penalties.Make(MaxServices); });
  StepTrace = "Clr Analysis Vars";
  ClearAnalysisVars();
  StepTrace = "Clr Analysis Arrays";
  ClearAnalysisArrays();
}

bool NextLine(LineReader& log, std::string_view& line) {
  bool found = false;
  Attempt([&] { found = log.Next(line); });
  return found;
}

void ReadLog() {
  std::optional<LineReader> log;
  std::optional<LineClassifier> classifier;
  const bool opened = Attempt([&] {
    classifier.emplace();
    log.emplace(CurrentLogPath);
  });
  if (!opened) return;
  for (std::string_view line; KeepReading && NextLine(*log, line);) {
    Process(line, *classifier);
    if (ServicesExceeded || ConnectionsExceeded) KeepReading = false;
  }
  Attempt([&log] { log->Close(); });
}

void TellIncompleteTariffs() {
  MsgBox(
      {"Your Dialup Tariff Definitions Are Incomplete!\n\n"
       "Please review your dial-up costs/tariff definitions\n"
       "as they appear to be incomplete. Make sure all time\n"
       "segments are defined properly. Reported costs will be\n"
       "inaccurate until this is done.",
       "WARNING", Icon::Exclamation});
}

}  // namespace

void Analyse() {
  ResetAnalysis();
  KeepReading = true;
  SetTrace("QELAnalyse", "Analyse");
  MakeArrays();
  StepTrace = "Progress Chunk";
  CurrentDisplay().ShowProgress(true);
  ProgressChunk = NextProgress = Int32(std::floor(LogEntries / 10));
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReadLog();
  StepTrace = "Finished Processing";
  if (Connected) CloseAtEndOfLog();
  CurrentDisplay().ShowProgress(false);
  Attempt([] {
    CurrentDisplay().StatusText(" F I N I S H E D !  -  (" + std::to_string(EntriesProcessed) +
                                " entries processed)");
  });
  if (TariffIncomplete) Attempt(TellIncompleteTariffs);
  CheckWarnings();
  if (!ServicesExceeded && !LogCorrupt) CurrentDisplay().ShowReport();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
