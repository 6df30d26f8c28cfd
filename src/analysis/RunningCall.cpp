#include "analysis/RunningCall.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "core/Unattended.h"
#include "modemlog/DialledNumber.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr int DaysAhead = 7;

// The next moment behind `now` at which a time of day comes.
Date Next(Date now, Date timeOfDay) {
  const Date today = AtTime(WholeDay(now), timeOfDay);
  return today > now ? today : today + 1;
}

Date StartOf(const ConnectionRecord& call) { return AtTime(call.StartDate, call.StartTime); }

class NextChange {
 public:
  NextChange(const Pricing& pricing, const ConnectionRecord& call, Date now)
      : pricing(pricing), call(call), now(now) {
    const Int16 index = GetServiceIndex(pricing.settings, call.Number);
    service = index < 0 ? nullptr : &pricing.settings.Services[index];
  }

  std::optional<PriceChange> Find() {
    FindTariff();
    if (service && service->ServiceOption != 0) FindFreeTime();
    if (service && service->ServiceOption == ServiceRecord::FlexibleRate) FindHours();
    return change;
  }

 private:
  void Take(Date at, const std::string& what) {
    if (at > now && (!change || at < change->At)) change = PriceChange{at, what};
  }

  // Of a call that goes on to the end of the day, or else of one of the next days.
  void FindTariff() {
    for (int day = 0; day < DaysAhead && !change; ++day) {
      PricePieces pieces;
      pricing.GetDialupCost(call.Number, call.StartDate, call.StartTime, WholeDay(now) + day,
                            TimeSerial(23, 59, 59), &pieces);
      const PricePiece* before = nullptr;
      for (const PricePiece& piece : pieces) {
        if (piece.From == 0) continue;  // the charge for the call
        if (before && !SamePrice(*before, piece) && piece.From > now) return Take(piece.From, NameOf(piece));
        before = &piece;
      }
    }
  }

  static bool SamePrice(const PricePiece& a, const PricePiece& b) {
    if (a.Kind != b.Kind || !a.Tariff != !b.Tariff) return false;
    return !a.Tariff ||
           (a.Rate == b.Rate && a.Tariff->Unit == b.Tariff->Unit &&
            a.Tariff->UnitMins == b.Tariff->UnitMins && a.Tariff->UnitSecs == b.Tariff->UnitSecs);
  }

  static std::string NameOf(const PricePiece& piece) {
    return piece.Kind == PieceKind::NoTariff ? "no tariff" : piece.Tariff ? piece.Tariff->Description : "";
  }

  void FindFreeTime() {
    if (!service->FreePeriod || service->FreeStart == service->FreeEnd) return;
    Take(Next(now, service->FreeStart), "free time");
    Take(Next(now, service->FreeEnd), "end of free time");
  }

  // The hours that are left of the charging period.
  void FindHours() {
    Pricing trial = pricing;
    PricePieces pieces;
    const Int32 free = trial.GetFreeSeconds(call.Number, call.StartTime, now - WholeDay(now));
    trial.GetServiceCost(call.Number, SecondsBetween(StartOf(call), now) - free, call.StartDate, &pieces);
    for (const PricePiece& piece : pieces)
      if (piece.Kind == PieceKind::WithinHours)
        Take(AddSeconds(now, service->UpToHours * 3600.0 - piece.UsedAfter),
             "more than " + Counted(service->UpToHours, "hour"));
  }

  const Pricing& pricing;
  const ConnectionRecord& call;
  const Date now;
  const ServiceRecord* service;
  std::optional<PriceChange> change;
};

}  // namespace

std::optional<RunningCall> CallUnderWay(const FollowedLog& log, Date now) {
  Unattended nobody;
  const Surroundings around(nobody, nobody);
  const ConnectionRecord* connection = log.OnLine();
  if (!connection) return std::nullopt;
  const Settings& settings = log.CallPricing().settings;
  RunningCall call;
  call.Start = StartOf(*connection);
  call.Number = connection->Number;
  now = std::max(now, call.Start);  // clocks differ
  if (now - call.Start > settings.MaxConnectDays) return std::nullopt;
  call.Seconds = SecondsBetween(call.Start, now);
  const AnalysisResult then = log.ClosedAt(now);
  const CallCosts& costs = then.LastCosts;
  if (settings.CalcCosts && !connection->Answered) {
    call.Cost = costs.DialCostNow + costs.ServiceCostNow + costs.DataCostNow;
    IgnoreErrors([&] { call.Change = NextChange(log.CallPricing(), *connection, now).Find(); });
  }
  call.Exceeded = ExceededWarnings(settings, then);
  return call;
}

}  // namespace qel
