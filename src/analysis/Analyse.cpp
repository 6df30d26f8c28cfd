#include "analysis/Analyse.h"

#include <utility>

#include "analysis/LogPass.h"
#include "analysis/Warnings.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"

namespace qel {

namespace {

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

AnalysisResult Analyse(const Settings& settings, const LogFile& logFile, float entries,
                       const Period& period) {
  AnalysisResult result;
  Pricing pricing(settings, period);
  Analyse(pricing, logFile, entries, result);
  return result;
}

void Analyse(Pricing& pricing, const LogFile& logFile, float entries, AnalysisResult& result) {
  SetTrace("QELAnalyse", "Analyse");
  LogPass(pricing, logFile, entries, result).Run();
  Attempt([&] {
    CurrentDisplay().StatusText(" F I N I S H E D !  -  (" + std::to_string(result.EntriesProcessed) +
                                " entries processed)");
  });
  if (result.TariffIncomplete) Attempt(TellIncompleteTariffs);
  CheckWarnings(pricing.settings, result);
}

void ProcessLog(Pricing& pricing, const LogFile& logFile, LogFindings& findings, AnalysisResult& analysis) {
  ForgetUndatedLine(findings, analysis);
  analysis = {};
  Analyse(pricing, logFile, findings.LogEntries, analysis);
  if (findings.LogCorrupt) analysis.UndatedLineMet = false;  // corrupt without it
  if (analysis.UndatedLineMet) findings.LogCorrupt = true;
  if (!analysis.ServicesExceeded && !findings.LogCorrupt) CurrentDisplay().ShowReport();
  CurrentHost().SetMousePointer(MousePointer::Default);
}

void ForgetUndatedLine(LogFindings& findings, AnalysisResult& analysis) {
  if (std::exchange(analysis.UndatedLineMet, false)) findings.LogCorrupt = false;
}

}  // namespace qel
