#include "analysis/ConnectionClose.h"

#include <algorithm>
#include <cmath>

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

// What fails is left out and nothing else: each attempt below has one effect, which it works out before.
namespace qel {

namespace {

ConnectionRecord& Connection() { return analysis.Connections[analysis.ConnectionCount]; }
ServiceTotal& Slot() { return analysis.ServiceTotals[CurrentService]; }

// Where a close begins: no cost of another connection is about, and there is a record and a slot to close.
bool BeginClose() {
  DialCostNow = ServiceCostNow = DataCostNow = 0;
  return Attempt([] {
    static_cast<void>(Connection());
    static_cast<void>(Slot());
  });
}

Int32 SecondsToMidnight(Date time) { return SecondsBetween(time, TimeSerial(23, 59, 59)) + 1; }

// What is known of the time before the period goes. A little of it stays behind in the slots and in
// Penalties.
void ForgetTimeBeforePeriod() {
  analysis.ConnectionCount = 0;
  ClearAnalysisArrays();
  analysis.TotalsCount = 0;
  analysis.LogErrorsFound = false;
}

// A connection over midnight loses the part on a day outside the period; whole days in between always count.
Int32 SecondsInsidePeriod() {
  if (DisconnectDate == ConnectDate) return SecondsBetween(ConnectTime, DisconnectTime);
  const Int16 days = DaysBetween(ConnectDate, DisconnectDate);
  Int32 seconds = std::max<Int32>(days - 1, 0) * SecondsPerDay;
  if (ConnectDate >= period.PeriodStart) seconds += SecondsToMidnight(ConnectTime);
  if (DisconnectDate <= period.PeriodEnd) seconds += SecondsBetween(0, DisconnectTime);
  return seconds;
}

void AddFreeTime() {
  const Int32 seconds = GetFreeSeconds(Slot().Number, ConnectTime, DisconnectTime);
  Connection().FreeSeconds = seconds;
  if (seconds > 0) Attempt([&] { Connection().Notes += FreeNote(seconds); });
  Attempt([&] { Slot().FreeSeconds += seconds; });
}

// Leaves the magnitude of the cost; true where the tariffs left a gap.
bool PriceTheCall(double share) {
  double cost = 0;
  Attempt([&] {
    cost = share * GetDialupCost(Slot().Number, ConnectDate, ConnectTime, DisconnectDate, DisconnectTime, 0);
  });
  DialCostNow = std::fabs(cost);
  const bool gap = cost < 0;
  if (gap) analysis.TariffIncomplete = true;
  return gap;
}

void CountBlocks() {
  Attempt([] {
    const Int16 minutes = ServiceBlockMinutes(Slot().Number);
    BlockCount = GetBlockCount(minutes, ConnectSeconds);
    BlockMinutes = minutes;
  });
  if (BlockCount <= 0) return;
  analysis.ShowBlocks = true;
  Attempt([] { Connection().Notes += BlocksNote(BlockCount, BlockMinutes); });
}

void AddTimeToSlot() {
  Attempt([] {
    Connection().Slot = CurrentService;
    Connection().SlotNumber = Slot().Number;
  });
  Attempt([] { ++Slot().Connections; });
  Attempt([] { Slot().Seconds += ConnectSeconds; });
  Attempt([] { Slot().Blocks += BlockCount; });
}

void RoundToBlocks() {
  if (BlockMinutes > 0) Attempt([] { ConnectSeconds = BlockMinutes * 60 * BlockCount; });
}

void PriceTheService() {
  Attempt([] {
    const double cost = GetServiceCost(Slot().Number, ConnectSeconds - Connection().FreeSeconds, ConnectDate);
    ServiceCostNow = ApplyMaxCharge(cost, Slot().Number);
  });
}

void AddTimeAndPriceService() {
  CountBlocks();
  AddTimeToSlot();
  RoundToBlocks();
  PriceTheService();
}

// Data that was read is charged when its line comes.
void AddCostsToSlot() {
  Slot().TotalCost = Slot().TotalCost + DialCostNow + ServiceCostNow;
  Slot().DialCost += DialCostNow;
  Slot().ServiceCost += ServiceCostNow;
}

double EstimatedBytes() { return settings.NoDisconData * 1024; }
double ErrorShare() { return settings.ShowErrors ? 1 : 0; }

void StampEnd(Date date, Date time) {
  Connection().EndDate = DisconnectDate = date;
  Connection().EndTime = DisconnectTime = time;
}

// False where no end could be estimated: the connection then ends where it began.
bool EstimateEnd() {
  const Date startDate = Connection().StartDate, startTime = Connection().StartTime;
  StampEnd(startDate, startTime);
  return Attempt([&] {
    const double duration = settings.NoDisconDuration * ErrorShare();
    ConnectSeconds = Int32(duration);
    const Int32 rest = SecondsToMidnight(startTime);
    if (rest > duration)
      StampEnd(startDate, AddSeconds(startTime, duration));
    else
      StampEnd(startDate + 1, AddSeconds(0, settings.NoDisconDuration - rest));
  });
}

void NoteLostDisconnect() {
  Attempt([] { Connection().Notes = NoDisconnectNote; });
  const bool estimated = Attempt([] { Connection().BytesRead = Int32(EstimatedBytes() * ErrorShare()); });
  if (estimated && Connection().BytesRead > 0)
    Attempt([] { Connection().Notes += ReadNote(Connection().BytesRead); });
}

void AddEstimatedBytes() {
  Attempt([] { Slot().BytesRead = Int32(Slot().BytesRead + EstimatedBytes() * ErrorShare()); });
}

void PriceEstimatedData() {
  Attempt([] { DataCostNow = GetDataCost(Slot().Number, EstimatedBytes(), Connection().StartDate); });
}

void AddCostsAndDataToSlot() {
  AddCostsToSlot();
  Slot().TotalCost += DataCostNow;
}

}  // namespace

void OrdinaryClose() {
  Attempt([] { LineTime = TimeOfLine(CurrentLine); });
  if (LineDate < period.PeriodStart) {
    ClearAnalysisVars();
    return ForgetTimeBeforePeriod();
  }
  if (!BeginClose()) return ClearAnalysisVars();
  StampEnd(LineDate, LineTime);
  Attempt([] { ConnectSeconds = SecondsInsidePeriod(); });
  AddFreeTime();
  if (PriceTheCall(1)) Attempt([] { Connection().Notes = IncompleteTariffNote; });
  AddTimeAndPriceService();
  AddCostsToSlot();
  ClearAnalysisVars();
}

void CloseNoDisconnect() {
  analysis.LogErrorsFound = true;
  if (!BeginClose()) return ClearAnalysisVars();
  NoteLostDisconnect();
  const bool estimated = EstimateEnd();
  AddFreeTime();
  AddEstimatedBytes();
  PriceTheCall(ErrorShare());
  AddTimeAndPriceService();
  // With ShowErrors off the estimated data is charged all the same; not so at the end of the log.
  PriceEstimatedData();
  AddCostsAndDataToSlot();
  const Date endDate = DisconnectDate;
  ClearAnalysisVars();
  if (estimated && endDate < period.PeriodStart) ForgetTimeBeforePeriod();
}

void CloseAtEndOfLog() {
  analysis.LogErrorsFound = true;
  if (!BeginClose()) return ClearAnalysisVars();
  EstimateEnd();
  NoteLostDisconnect();
  AddFreeTime();
  AddEstimatedBytes();
  PriceTheCall(ErrorShare());
  PriceEstimatedData();
  DataCostNow *= ErrorShare();
  AddTimeAndPriceService();
  ServiceCostNow *= ErrorShare();
  AddCostsAndDataToSlot();
  ClearAnalysisVars();
}

}  // namespace qel
