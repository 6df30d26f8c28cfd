#include <utility>

#include "analysis/QELAnalyse.h"
#include "core/ProgramState.h"
#include "modemlog/LogFile.h"

namespace qel {

AnalysisResult analysis;
UsageTable Penalties;

std::string CurrentLine, LineDateText;
Date LineDate{}, LineTime{}, ConnectDate{}, ConnectTime{}, DisconnectDate{}, DisconnectTime{};
bool Connected{};
Int16 CurrentService, LastService;
bool AnsweredPending{};
Int32 ConnectSeconds;
Int16 BlockMinutes, BlockCount;
double DialCostNow{}, ServiceCostNow{}, DataCostNow{};
bool KeepReading{};
Int32 ProgressChunk, NextProgress;
bool SummaryBuilt{}, DetailBuilt{};

void UsageTable::Make(Int16 lastService) {
  byService.Make(lastService);
  for (int i = 0; i <= lastService; ++i) byService[i].Make(LastPeriod);
}

void ForgetUndatedLine() {
  if (std::exchange(analysis.UndatedLineMet, false)) findings.LogCorrupt = false;
}

void ClearAnalysisVars() {
  Connected = false;
  CurrentService = 0;
  ConnectDate = ConnectTime = DisconnectDate = DisconnectTime = 0;
  ConnectSeconds = 0;
  BlockCount = 0;
  BlockMinutes = 0;
}

void ClearAnalysisArrays() {
  for (int i = 0; i <= analysis.ServiceTotals.Last(); ++i) {
    ServiceTotal& slot = analysis.ServiceTotals[i];
    slot.Number.clear();
    slot.Seconds = 0;
    slot.Connections = 0;
    slot.TotalCost = 0;
    slot.BytesRead = 0;
  }
  for (int i = 1; i <= analysis.Connections.Last(); ++i) {
    ConnectionRecord& connection = analysis.Connections[i];
    connection.StartDate = connection.StartTime = connection.EndDate = connection.EndTime = 0;
    connection.Number.clear();
    connection.Notes.clear();
    connection.Answered = false;
  }
}

void ResetAnalysis() {
  ForgetUndatedLine();
  analysis = {};
  Penalties = {};
  LineDateText.clear();
  LineTime = 0;
  ClearAnalysisVars();
  LastService = 0;
  DialCostNow = ServiceCostNow = DataCostNow = 0;
  ProgressChunk = NextProgress = 0;
  SummaryBuilt = DetailBuilt = false;
}

}  // namespace qel
