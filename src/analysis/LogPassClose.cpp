// How a pass closes a connection: it is priced and added to the totals.
//
// What fails is left out and nothing else: each attempt below has one effect, which it works out before.
#include <algorithm>
#include <cmath>

#include "analysis/ConnectionNotes.h"
#include "analysis/LogPass.h"
#include "core/ErrorHandler.h"
#include "modemlog/LogLine.h"

namespace qel {

namespace {

Int32 SecondsToMidnight(Date time) { return SecondsBetween(time, TimeSerial(23, 59, 59)) + 1; }

}  // namespace

// What is known of the time before the period goes. A little of it stays behind in the slots and in
// Penalties.
void LogPass::ForgetTimeBeforePeriod() {
  result.ConnectionCount = 0;
  ClearAnalysisArrays();
  result.TotalsCount = 0;
  result.LogErrorsFound = false;
}

class LogPass::Close {
 public:
  explicit Close(LogPass& pass) : pass(pass) {}

  // No cost of another connection is about, and there is a record and a slot to close.
  bool Begin() {
    costs = {};
    return Attempt([this] {
      static_cast<void>(Connection());
      static_cast<void>(Slot());
    });
  }

  // A connection over midnight loses the part on a day outside the period; whole days in between always
  // count.
  Int32 SecondsInsidePeriod() {
    if (DisconnectDate == pass.ConnectDate) return SecondsBetween(pass.ConnectTime, DisconnectTime);
    const Int16 days = DaysBetween(pass.ConnectDate, DisconnectDate);
    Int32 seconds = std::max<Int32>(days - 1, 0) * SecondsPerDay;
    if (pass.ConnectDate >= pass.period.PeriodStart) seconds += SecondsToMidnight(pass.ConnectTime);
    if (DisconnectDate <= pass.period.PeriodEnd) seconds += SecondsBetween(0, DisconnectTime);
    return seconds;
  }

  void AddFreeTime() {
    const Int32 seconds = pass.pricing.GetFreeSeconds(Slot().Number, pass.ConnectTime, DisconnectTime);
    Connection().FreeSeconds = seconds;
    if (seconds > 0) Attempt([&] { Connection().Notes += FreeNote(seconds); });
    Attempt([&] { Slot().FreeSeconds += seconds; });
  }

  // Leaves the magnitude of the cost; true where the tariffs left a gap.
  bool PriceTheCall(double share) {
    double cost = 0;
    Attempt([&] {
      cost = share * pass.pricing.GetDialupCost(Slot().Number, pass.ConnectDate, pass.ConnectTime,
                                                DisconnectDate, DisconnectTime, nullptr);
    });
    costs.DialCostNow = std::fabs(cost);
    const bool gap = cost < 0;
    if (gap) pass.result.TariffIncomplete = true;
    return gap;
  }

  void CountBlocks() {
    Attempt([this] {
      const Int16 minutes = pass.pricing.ServiceBlockMinutes(Slot().Number);
      BlockCount = GetBlockCount(minutes, ConnectSeconds);
      BlockMinutes = minutes;
    });
    if (BlockCount <= 0) return;
    pass.result.ShowBlocks = true;
    Attempt([this] { Connection().Notes += BlocksNote(BlockCount, BlockMinutes); });
  }

  void AddTimeToSlot() {
    Attempt([this] {
      Connection().Slot = pass.CurrentService;
      Connection().SlotNumber = Slot().Number;
    });
    Attempt([this] { ++Slot().Connections; });
    Attempt([this] { Slot().Seconds += ConnectSeconds; });
    Attempt([this] { Slot().Blocks += BlockCount; });
  }

  void RoundToBlocks() {
    if (BlockMinutes > 0) Attempt([this] { ConnectSeconds = BlockMinutes * 60 * BlockCount; });
  }

  void PriceTheService() {
    Attempt([this] {
      const double cost = pass.pricing.GetServiceCost(
          Slot().Number, ConnectSeconds - Connection().FreeSeconds, pass.ConnectDate);
      costs.ServiceCostNow = pass.pricing.ApplyMaxCharge(cost, Slot().Number);
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
    Slot().TotalCost = Slot().TotalCost + costs.DialCostNow + costs.ServiceCostNow;
    Slot().DialCost += costs.DialCostNow;
    Slot().ServiceCost += costs.ServiceCostNow;
  }

  double EstimatedBytes() { return pass.settings.NoDisconData * 1024; }
  double ErrorShare() { return pass.settings.ShowErrors ? 1 : 0; }

  void StampEnd(Date date, Date time) {
    Connection().EndDate = DisconnectDate = date;
    Connection().EndTime = DisconnectTime = time;
  }

  // False where no end could be estimated: the connection then ends where it began.
  bool EstimateEnd() {
    const Date startDate = Connection().StartDate, startTime = Connection().StartTime;
    StampEnd(startDate, startTime);
    return Attempt([&] {
      const double duration = pass.settings.NoDisconDuration * ErrorShare();
      ConnectSeconds = Int32(duration);
      const Int32 rest = SecondsToMidnight(startTime);
      if (rest > duration)
        StampEnd(startDate, AddSeconds(startTime, duration));
      else
        StampEnd(startDate + 1, AddSeconds(0, pass.settings.NoDisconDuration - rest));
    });
  }

  void NoteLostDisconnect() {
    Attempt([this] { Connection().Notes = NoDisconnectNote; });
    const bool estimated =
        Attempt([this] { Connection().BytesRead = Int32(EstimatedBytes() * ErrorShare()); });
    if (estimated && Connection().BytesRead > 0)
      Attempt([this] { Connection().Notes += ReadNote(Connection().BytesRead); });
  }

  void AddEstimatedBytes() {
    Attempt([this] { Slot().BytesRead = Int32(Slot().BytesRead + EstimatedBytes() * ErrorShare()); });
  }

  void PriceEstimatedData() {
    Attempt([this] {
      costs.DataCostNow = pass.pricing.GetDataCost(Slot().Number, EstimatedBytes(), Connection().StartDate);
    });
  }

  void AddCostsAndDataToSlot() {
    AddCostsToSlot();
    Slot().TotalCost += costs.DataCostNow;
  }

  Int32 ConnectSeconds;
  Date DisconnectDate = 0, DisconnectTime = 0;

 private:
  ConnectionRecord& Connection() { return pass.Connection(); }
  ServiceTotal& Slot() { return pass.result.ServiceTotals[pass.CurrentService]; }

  LogPass& pass;
  CallCosts& costs = pass.result.LastCosts;
  Int16 BlockMinutes, BlockCount;
};

void LogPass::OrdinaryClose() {
  Attempt([this] { LineTime = TimeOfLine(CurrentLine); });
  if (LineDate < period.PeriodStart) {
    ClearAnalysisVars();
    return ForgetTimeBeforePeriod();
  }
  Close close(*this);
  if (!close.Begin()) return ClearAnalysisVars();
  close.StampEnd(LineDate, LineTime);
  Attempt([&] { close.ConnectSeconds = close.SecondsInsidePeriod(); });
  close.AddFreeTime();
  if (close.PriceTheCall(1)) Attempt([this] { Connection().Notes = IncompleteTariffNote; });
  close.AddTimeAndPriceService();
  close.AddCostsToSlot();
  ClearAnalysisVars();
}

void LogPass::CloseNoDisconnect() {
  result.LogErrorsFound = true;
  Close close(*this);
  if (!close.Begin()) return ClearAnalysisVars();
  close.NoteLostDisconnect();
  const bool estimated = close.EstimateEnd();
  close.AddFreeTime();
  close.AddEstimatedBytes();
  close.PriceTheCall(close.ErrorShare());
  close.AddTimeAndPriceService();
  // With ShowErrors off the estimated data is charged all the same; not so at the end of the log.
  close.PriceEstimatedData();
  close.AddCostsAndDataToSlot();
  const Date endDate = close.DisconnectDate;
  ClearAnalysisVars();
  if (estimated && endDate < period.PeriodStart) ForgetTimeBeforePeriod();
}

void LogPass::CloseAtEndOfLog() {
  result.LogErrorsFound = true;
  Close close(*this);
  if (!close.Begin()) return ClearAnalysisVars();
  close.EstimateEnd();
  close.NoteLostDisconnect();
  close.AddFreeTime();
  close.AddEstimatedBytes();
  close.PriceTheCall(close.ErrorShare());
  close.PriceEstimatedData();
  result.LastCosts.DataCostNow *= close.ErrorShare();
  close.AddTimeAndPriceService();
  result.LastCosts.ServiceCostNow *= close.ErrorShare();
  close.AddCostsAndDataToSlot();
  ClearAnalysisVars();
}

}  // namespace qel
