#include <utility>

#include "analysis/QELAnalyse.h"
#include "core/ProgramState.h"

namespace qel {

BoundedArray<ConnectionRecord> Connections;
Int16 ConnectionCount;
BoundedArray<ServiceTotal> ServiceTotals;
Int16 TotalsCount;
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
Int32 EntriesProcessed, ProgressChunk, NextProgress;
bool ServicesExceeded{}, ConnectionsExceeded{};
bool LogErrorsFound{}, TariffIncomplete{}, UndatedLineMet{}, ShowBlocks{};
bool SummaryBuilt{}, DetailBuilt{};

void UsageTable::Make(Int16 lastService) {
  byService.Make(lastService);
  for (int i = 0; i <= lastService; ++i) byService[i].Make(LastPeriod);
}

void ForgetUndatedLine() {
  if (std::exchange(UndatedLineMet, false)) LogCorrupt = false;
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
  for (int i = 0; i <= ServiceTotals.Last(); ++i) {
    ServiceTotal& slot = ServiceTotals[i];
    slot.Number.clear();
    slot.Seconds = 0;
    slot.Connections = 0;
    slot.TotalCost = 0;
    slot.BytesRead = 0;
  }
  for (int i = 1; i <= Connections.Last(); ++i) {
    ConnectionRecord& connection = Connections[i];
    connection.StartDate = connection.StartTime = connection.EndDate = connection.EndTime = 0;
    connection.Number.clear();
    connection.Notes.clear();
    connection.Answered = false;
  }
}

void ResetAnalysis() {
  ForgetUndatedLine();
  Connections = {};
  ServiceTotals = {};
  Penalties = {};
  ConnectionCount = TotalsCount = 0;
  LineDateText.clear();
  LineTime = 0;
  ClearAnalysisVars();
  LastService = 0;
  DialCostNow = ServiceCostNow = DataCostNow = 0;
  EntriesProcessed = ProgressChunk = NextProgress = 0;
  ServicesExceeded = ConnectionsExceeded = LogErrorsFound = TariffIncomplete = ShowBlocks = false;
  SummaryBuilt = DetailBuilt = false;
}

}  // namespace qel
