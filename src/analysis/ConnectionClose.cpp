#include "analysis/ConnectionClose.h"

#include "analysis/ConnectionNotes.h"
#include "analysis/DataCost.h"
#include "analysis/DialupCost.h"
#include "analysis/FreeTime.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "analysis/ServiceCost.h"
#include "core/ErrorHandler.h"
#include "modemlog/LogLine.h"
#include "settings/Settings.h"

namespace qel {

namespace {

ConnectionRecord& Connection() { return Connections[ConnectionCount]; }
ServiceTotal& Slot() { return ServiceTotals[CurrentService]; }

Int32 SecondsToMidnight(Date time) { return SecondsBetween(time, TimeSerial(23, 59, 59)) + 1; }

// What is known of the time before the period goes. A little of it stays behind in the slots and in
// Penalties.
void ForgetTimeBeforePeriod() {
  ConnectionCount = 0;
  ClearAnalysisArrays();
  TotalsCount = 0;
  LogErrorsFound = false;
}

// A connection over midnight loses the part on a day outside the period; whole days in between always count.
Int32 SecondsInsidePeriod() {
  if (DisconnectDate == ConnectDate) return SecondsBetween(ConnectTime, DisconnectTime);
  Int32 seconds = 0;
  if (ConnectDate + 1 < DisconnectDate) {
    const Int16 days = DaysBetween(ConnectDate, DisconnectDate);
    seconds = Int32(days - 1) * SecondsPerDay;
  }
  if (ConnectDate >= PeriodStart) seconds += SecondsToMidnight(ConnectTime);
  if (DisconnectDate <= PeriodEnd) seconds += SecondsBetween(0, DisconnectTime);
  return seconds;
}

void AddFreeTime() {
  Connection().FreeSeconds = GetFreeSeconds(Slot().Number, ConnectTime, DisconnectTime);
  if (Connection().FreeSeconds > 0) Connection().Notes += FreeNote(Connection().FreeSeconds);
  Slot().FreeSeconds += Connection().FreeSeconds;
}

// Leaves the magnitude of the cost; true where the tariffs left a gap.
bool PriceTheCall(double share) {
  DialCostNow =
      share * GetDialupCost(Slot().Number, ConnectDate, ConnectTime, DisconnectDate, DisconnectTime, 0);
  if (!(DialCostNow < 0)) return false;
  TariffIncomplete = true;
  DialCostNow = -DialCostNow;
  return true;
}

void CountBlocks() {
  BlockMinutes = ServiceBlockMinutes(Slot().Number);
  BlockCount = GetBlockCount(BlockMinutes, ConnectSeconds);
  if (BlockCount <= 0) return;
  ShowBlocks = true;
  Connection().Notes += BlocksNote(BlockCount, BlockMinutes);
}

void AddTimeToSlot() {
  Connection().Slot = CurrentService;
  Connection().SlotNumber = Slot().Number;
  ++Slot().Connections;
  Slot().Seconds += ConnectSeconds;
  Slot().Blocks += BlockCount;
}

void RoundToBlocks() {
  if (BlockMinutes > 0) ConnectSeconds = BlockMinutes * 60 * BlockCount;
}

void PriceTheService() {
  const double cost = GetServiceCost(Slot().Number, ConnectSeconds - Connection().FreeSeconds, ConnectDate);
  ServiceCostNow = ApplyMaxCharge(cost, Slot().Number);
}

void AddTimeAndPriceService() {
  Attempt(CountBlocks);
  Attempt(AddTimeToSlot);
  Attempt(RoundToBlocks);
  Attempt(PriceTheService);
}

// Data that was read is charged when its line comes.
void AddCostsToSlot() {
  Slot().TotalCost = Slot().TotalCost + DialCostNow + ServiceCostNow;
  Slot().DialCost += DialCostNow;
  Slot().ServiceCost += ServiceCostNow;
}

double EstimatedBytes() { return NoDisconData * 1024; }
double ErrorShare() { return ShowErrors ? 1 : 0; }

void EstimateEnd() {
  const double duration = NoDisconDuration * ErrorShare();
  const Int32 rest = SecondsToMidnight(Connection().StartTime);
  if (rest > duration) {
    Connection().EndDate = Connection().StartDate;
    Connection().EndTime = AddSeconds(Connection().StartTime, duration);
  } else {
    Connection().EndDate = Connection().StartDate + 1;
    Connection().EndTime = AddSeconds(0, NoDisconDuration - rest);
  }
  DisconnectDate = Connection().EndDate;
  DisconnectTime = Connection().EndTime;
  ConnectSeconds = Int32(duration);
}

void NoteLostDisconnect() {
  Connection().Notes = NoDisconnectNote;
  Connection().BytesRead = Int32(EstimatedBytes() * ErrorShare());
  if (Connection().BytesRead > 0) Connection().Notes += ReadNote(Connection().BytesRead);
}

void AddEstimatedBytes() { Slot().BytesRead = Int32(Slot().BytesRead + EstimatedBytes() * ErrorShare()); }

void PriceEstimatedData() {
  DataCostNow = GetDataCost(Slot().Number, EstimatedBytes(), Connection().StartDate);
}

void AddCostsAndDataToSlot() {
  AddCostsToSlot();
  Slot().TotalCost += DataCostNow;
}

}  // namespace

void OrdinaryClose() {
  Attempt([] { LineTime = TimeOfLine(CurrentLine); });
  DisconnectDate = LineDate;
  DisconnectTime = LineTime;
  if (DisconnectDate < PeriodStart) {
    ClearAnalysisVars();
    return ForgetTimeBeforePeriod();
  }
  Attempt([] {
    Connection().EndDate = DisconnectDate;
    Connection().EndTime = DisconnectTime;
  });
  Attempt([] { ConnectSeconds = SecondsInsidePeriod(); });
  Attempt(AddFreeTime);
  Attempt([] {
    if (PriceTheCall(1)) Connection().Notes = IncompleteTariffNote;
  });
  AddTimeAndPriceService();
  Attempt(AddCostsToSlot);
  ClearAnalysisVars();
}

void CloseNoDisconnect() {
  Attempt(NoteLostDisconnect);
  Attempt(EstimateEnd);
  LogErrorsFound = true;
  Attempt(AddFreeTime);
  Attempt(AddEstimatedBytes);
  Attempt([] { PriceTheCall(ErrorShare()); });
  AddTimeAndPriceService();
  // With ShowErrors off the estimated data is charged all the same; not so at the end of the log.
  Attempt(PriceEstimatedData);
  Attempt(AddCostsAndDataToSlot);
  const Date endDate = DisconnectDate;
  ClearAnalysisVars();
  if (endDate < PeriodStart) ForgetTimeBeforePeriod();
}

void CloseAtEndOfLog() {
  LogErrorsFound = true;
  Attempt(EstimateEnd);
  Attempt(NoteLostDisconnect);
  Attempt(AddFreeTime);
  Attempt(AddEstimatedBytes);
  Attempt([] { PriceTheCall(ErrorShare()); });
  Attempt([] {
    PriceEstimatedData();
    DataCostNow *= ErrorShare();
  });
  AddTimeAndPriceService();
  ServiceCostNow *= ErrorShare();
  Attempt(AddCostsAndDataToSlot);
  ClearAnalysisVars();
}

}  // namespace qel
