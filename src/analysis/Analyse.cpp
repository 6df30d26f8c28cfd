#include <cmath>
#include <optional>

#include "analysis/ConnectionClose.h"
#include "analysis/Process.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "analysis/Warnings.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "core/Surroundings.h"
#include "modemlog/LogStatistics.h"
#include "platform/Files.h"
#include "settings/Settings.h"

namespace qel {

namespace {

void MakeArrays() {
  TraceStep("Service Arrays");
  Attempt([] { analysis.ServiceTotals.Make(settings.MaxServices); });
  TraceStep("Connection Arrays");
  Attempt([] { analysis.Connections.Make(settings.MaxConnections); });
  TraceStep("Penalty Arrays");
  Attempt([] { Penalties.Make(settings.MaxServices); });
  TraceStep("Clr Analysis Vars");
  ClearAnalysisVars();
  TraceStep("Clr Analysis Arrays");
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
    log.emplace(logFile.CurrentLogPath);
  });
  if (!opened) return;
  for (std::string_view line; KeepReading && NextLine(*log, line);) {
    Process(line, *classifier);
    if (analysis.ServicesExceeded || analysis.ConnectionsExceeded) KeepReading = false;
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
  TraceStep("Progress Chunk");
  CurrentDisplay().ShowProgress(true);
  ProgressChunk = NextProgress = Int32(std::floor(findings.LogEntries / 10));
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReadLog();
  TraceStep("Finished Processing");
  if (Connected) CloseAtEndOfLog();
  CurrentDisplay().ShowProgress(false);
  Attempt([] {
    CurrentDisplay().StatusText(" F I N I S H E D !  -  (" + std::to_string(analysis.EntriesProcessed) +
                                " entries processed)");
  });
  if (analysis.TariffIncomplete) Attempt(TellIncompleteTariffs);
  CheckWarnings();
  if (!analysis.ServicesExceeded && !findings.LogCorrupt) CurrentDisplay().ShowReport();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace qel
