// How a pass closes a connection: it is priced and added to the totals.
//
// What fails is left out and nothing else: each attempt below has one effect, which it works out before.
#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

#include "analysis/ConnectionNotes.h"
#include "analysis/LogPass.h"
#include "core/ErrorHandler.h"

namespace qel {

// Of one connection, which its disconnect line ends, or a line that opens another one, or the end of the log.
class LogPass::Close {
 public:
  // Raises 9 where there is no record or no slot to close.
  Close(Pricing& pricing, AnalysisResult& result, Int16 number)
      : pricing(pricing),
        settings(pricing.settings),
        result(result),
        connection(result.Connections[result.ConnectionCount]),
        number(number),
        slot(result.ServiceTotals[number]) {}

  void Ordinary(Date date, Date time) {
    StampEnd(date, time);
    Attempt([this] { ConnectSeconds = SecondsInside(pricing.period, connection); });
    AddFreeTime();
    if (PriceTheCall(1)) Attempt([this] { BeginNotes(connection, ConnectionKind::IncompleteTariff); });
    AddTimeAndPriceService();
    AddCostsToSlot();
  }

  // False where no end could be estimated.
  bool NoDisconnect() {
    NoteLostDisconnect();
    const bool estimated = EstimateEnd();
    AddFreeTime();
    AddEstimatedBytes();
    PriceTheCall(share);
    AddTimeAndPriceService();
    // With ShowErrors off the estimated data is charged all the same; not so at the end of the log.
    PriceEstimatedData();
    AddCostsToSlot();
    return estimated;
  }

  void AtEndOfLog() {
    EstimateEnd();
    NoteLostDisconnect();
    AddFreeTime();
    AddEstimatedBytes();
    PriceTheCall(share);
    PriceEstimatedData();
    costs.DataCostNow *= share;
    AddTimeAndPriceService();
    costs.ServiceCostNow *= share;
    AddCostsToSlot();
  }

 private:
  void StampEnd(Date date, Date time) {
    connection.EndDate = date;
    connection.EndTime = time;
  }

  // Where it fails the connection ends where it began.
  bool EstimateEnd() {
    StampEnd(connection.StartDate, connection.StartTime);
    return Attempt([this] {
      const double duration = settings.NoDisconDuration * share;
      ConnectSeconds = Int32(duration);
      const int rest = SecondsPerDay - SecondOfDay(connection.StartTime);
      if (rest > duration)
        StampEnd(connection.StartDate, AddSeconds(connection.StartTime, duration));
      else
        StampEnd(connection.StartDate + 1, AddSeconds(0, settings.NoDisconDuration - rest));
    });
  }

  void NoteLostDisconnect() {
    Attempt([this] { BeginNotes(connection, ConnectionKind::NoDisconnect); });
    const bool estimated = Attempt([this] { connection.BytesRead = Int32(EstimatedBytes() * share); });
    if (estimated && connection.BytesRead > 0)
      Attempt([this] { NoteBytesRead(connection, connection.BytesRead); });
  }

  void AddFreeTime() {
    const Int32 seconds = pricing.GetFreeSeconds(slot.Number, connection.StartTime, connection.EndTime);
    connection.FreeSeconds = seconds;
    if (seconds > 0)
      Attempt([&] { AddNote({.Kind = PieceKind::FreeTime, .Seconds = seconds}, connection.Notes); });
    Attempt([&] { slot.FreeSeconds += seconds; });
  }

  void AddEstimatedBytes() {
    Attempt([this] { slot.BytesRead = Int32(slot.BytesRead + EstimatedBytes() * share); });
  }

  // Leaves the magnitude of the cost; true where the tariffs left a gap.
  bool PriceTheCall(double part) {
    double cost = 0;
    Attempt([&] {
      cost = part * pricing.GetDialupCost(slot.Number, connection.StartDate, connection.StartTime,
                                          connection.EndDate, connection.EndTime);
    });
    costs.DialCostNow = std::fabs(cost);
    if (cost < 0) result.TariffIncomplete = true;
    return cost < 0;
  }

  void AddTimeAndPriceService() {
    CountBlocks();
    AddTimeToSlot();
    if (BlockMinutes > 0) Attempt([this] { ConnectSeconds = BlockMinutes * 60 * BlockCount; });
    Attempt([this] {
      const double cost =
          pricing.GetServiceCost(slot.Number, ConnectSeconds - connection.FreeSeconds, connection.StartDate);
      costs.ServiceCostNow = pricing.ApplyMaxCharge(cost, slot.Number);
    });
  }

  void CountBlocks() {
    Attempt([this] {
      const Int16 minutes = pricing.ServiceBlockMinutes(slot.Number);
      BlockCount = GetBlockCount(minutes, ConnectSeconds);
      BlockMinutes = minutes;
    });
    if (BlockCount <= 0) return;
    result.ShowBlocks = true;
    Attempt([this] {
      AddNote({.Kind = PieceKind::Blocks, .Units = BlockCount, .BlockMinutes = BlockMinutes},
              connection.Notes);
    });
  }

  void AddTimeToSlot() {
    Attempt([this] {
      connection.SlotNumber = SlotNumberIndex();
      connection.Slot = number;
    });
    Attempt([this] { ++slot.Connections; });
    Attempt([this] { slot.Seconds += ConnectSeconds; });
    Attempt([this] { slot.Blocks += BlockCount; });
  }

  std::uint32_t SlotNumberIndex() {
    auto& numbers = result.SlotNumbers;
    const auto found = std::ranges::find(numbers, slot.Number) - numbers.begin();
    if (found == std::ssize(numbers)) numbers.push_back(slot.Number);
    return static_cast<std::uint32_t>(found);
  }

  void PriceEstimatedData() {
    Attempt([this] {
      costs.DataCostNow = pricing.GetDataCost(slot.Number, EstimatedBytes(), connection.StartDate);
    });
  }

  // Data that was read is charged when its line comes.
  void AddCostsToSlot() {
    slot.TotalCost = slot.TotalCost + costs.DialCostNow + costs.ServiceCostNow + costs.DataCostNow;
    slot.DialCost += costs.DialCostNow;
    slot.ServiceCost += costs.ServiceCostNow;
  }

  double EstimatedBytes() const { return settings.NoDisconData * 1024; }

  Pricing& pricing;
  const Settings& settings;
  AnalysisResult& result;
  ConnectionRecord& connection;
  const Int16 number;
  ServiceTotal& slot;
  CallCosts& costs = result.LastCosts;
  const double share = settings.ShowErrors ? 1 : 0;  // of an estimate that counts
  Int32 ConnectSeconds;
  Int16 BlockMinutes, BlockCount;
};

// No cost of another connection is about.
void LogPass::CloseBy(const std::function<void(Close&)>& steps) {
  result.LastCosts = {};
  std::optional<Close> close;
  if (Attempt([&] { close.emplace(pricing, result, CurrentService); })) steps(*close);
  ClearAnalysisVars();
}

void LogPass::OrdinaryClose() {
  TakeLineTime();
  CloseAtLine();
}

void LogPass::CloseAtLine() {
  if (LineDate >= period.PeriodStart) {
    const auto read = ReadTotal, written = WriteTotal;
    CloseBy([this](Close& close) { close.Ordinary(LineDate, LineTime); });
    return CountTotals(read, written);
  }
  ClearAnalysisVars();
  ForgetTimeBeforePeriod();
}

AnalysisResult LogPass::ClosedAt(Date moment) const {
  AnalysisResult then = result;
  Pricing trial = pricing;
  LogPass pass(trial, logFile, entries, then);
  pass.CurrentService = CurrentService;
  pass.ReadTotal = ReadTotal;
  pass.WriteTotal = WriteTotal;
  pass.LineDate = WholeDay(moment);
  pass.LineTime = moment - pass.LineDate;
  pass.CloseAtLine();
  return then;
}

void LogPass::CountTotals(std::optional<Int32> read, std::optional<Int32> written) {
  if (read) CountReads(*read, Connection().Slot);
  if (written) Attempt([&] { CountWrites(*written); });
  TotalsCounted = read || written;
}

void LogPass::CloseNoDisconnect() {
  result.LogErrorsFound = true;
  bool estimated = false;
  CloseBy([&](Close& close) { estimated = close.NoDisconnect(); });
  if (estimated && Connection().EndDate < period.PeriodStart) ForgetTimeBeforePeriod();
}

void LogPass::CloseAtEndOfLog() {
  result.LogErrorsFound = true;
  CloseBy([](Close& close) { close.AtEndOfLog(); });
}

// What is known of the time before the period goes. A little of it stays behind in the slots and in
// Penalties.
void LogPass::ForgetTimeBeforePeriod() {
  result.ConnectionCount = 0;
  ClearAnalysisArrays();
  result.TotalsCount = 0;
  result.LogErrorsFound = false;
}

}  // namespace qel
