#include <algorithm>
#include <cmath>

#include "analysis/Pricing.h"
#include "analysis/TariffDays.h"
#include "core/Surroundings.h"

namespace qel {

namespace {

constexpr int LastSecondOfDay = SecondsPerDay - 1;

bool IsByTime(const TariffRecord& tariff) {
  return tariff.Unit == "Per Minute" || tariff.Unit == "Per Second";
}

// Cost of `seconds` in one tariff, its charge per call apart. Begun units are paid whole, and `units` tells
// how many there were.
double GetSegmentCost(const TariffRecord& tariff, Int32 seconds, Int16& units) {
  if (IsByTime(tariff)) return seconds / (tariff.Unit == "Per Minute" ? 60.0 : 1.0) * tariff.PerMinuteRate;
  const Int16 unitLength = tariff.UnitMins * 60 + tariff.UnitSecs;
  if (unitLength > 0) {
    units = Int16(std::floor(static_cast<double>(seconds) / unitLength));
    if (seconds % unitLength != 0) ++units;
  } else {
    units = Int16(seconds);
  }
  return units * tariff.PerMinuteRate;
}

// The walk through one call, piece by piece, from its start. All times are seconds of the day.
class TariffWalk {
 public:
  TariffWalk(const Settings& settings, const Period& period, const ServiceRecord& service, Date startDate,
             Date startTime, Date endDate, Date endTime, PricePieces* pieces)
      : settings(settings),
        period(period),
        service(service),
        day(startDate),
        second(SecondOfDay(startTime)),
        endDay(endDate),
        endSecond(SecondOfDay(endTime)),
        pieces(pieces) {}

  double Cost() {
    while (!done) TryAllTariffs();
    if (pieces) TellRest();
    return covered ? cost : 0 - cost;
  }

 private:
  enum class Outcome { Miss, CheckEnd, SameTariffAgain };

  void TryAllTariffs() {
    for (int t = 0; t < service.UsedTariffs && !done; ++t) {
      const TariffRecord& tariff = service.Tariffs[t];
      Outcome outcome = Try(tariff);
      while (outcome == Outcome::SameTariffAgain) outcome = Try(tariff);
      if (outcome == Outcome::CheckEnd && day > period.PeriodEnd) done = covered = true;
      if (done) return;
      ++misses;
      if (misses >= service.UsedTariffs) done = true;
    }
  }

  Outcome Try(const TariffRecord& tariff) {
    if (!DayMatches(settings, day, tariff.AppliesDays)) return Outcome::Miss;
    if (FirstSecond(tariff) > second) return Outcome::CheckEnd;
    const bool withinOneDay = endDay <= period.PeriodEnd && day >= period.PeriodStart && endDay == day;
    return withinOneDay ? TryWithinOneDay(tariff) : TryAcrossDays(tariff);
  }

  Outcome TryWithinOneDay(const TariffRecord& tariff) {
    const int segmentEnd = LastSecond(tariff);
    if (endSecond <= segmentEnd) {
      Price(tariff, endSecond, UnitNote::Once);
      second = endSecond;
      done = covered = true;
      return Outcome::CheckEnd;
    }
    if (second > segmentEnd) return Outcome::Miss;
    Price(tariff, segmentEnd, UnitNote::AfterDash);
    AdvanceBehind(segmentEnd);
    return Outcome::CheckEnd;
  }

  // The call crosses days or an edge of the period.
  Outcome TryAcrossDays(const TariffRecord& tariff) {
    if (day < period.PeriodStart) {
      EnterPeriod();
      return Outcome::SameTariffAgain;
    }
    if (day > period.PeriodEnd) return Outcome::CheckEnd;
    int segmentEnd = LastSecond(tariff);
    if (endDay < day && endSecond <= SecondOfDay(tariff.AppliesTimeEnd)) {
      segmentEnd = endSecond;
      covered = true;
    }
    if (second > segmentEnd) return Outcome::Miss;
    Price(tariff, segmentEnd, UnitNote::Always);
    AdvanceBehind(segmentEnd);
    return Outcome::SameTariffAgain;
  }

  // What lies before the period is not priced, the charge per call and the first piece's allowance included.
  void EnterPeriod() {
    TellTime({.Kind = PieceKind::OutsidePeriod, .From = Now(), .To = period.PeriodStart});
    day = period.PeriodStart;
    second = 0;
    firstPiece = false;
    dialAdded = true;
  }

  // The rest of the call up to a second of the day, or of the tariff. The first piece of a call is spared the
  // tariff's allowance, unless it is charged by units.
  void Price(const TariffRecord& tariff, int end, UnitNote note) {
    const Int32 seconds = end - second;
    const Int32 spared = firstPiece && IsByTime(tariff) ? std::min(tariff.After, seconds) : Int32();
    Int16 units;
    const double paid = GetSegmentCost(tariff, seconds - spared, units);
    cost += paid;
    if (!dialAdded) cost += tariff.DialRate;
    if (pieces) {
      const Date from = AddSeconds(Now(), std::max<int>(spared, 0));
      TellTime(
          {.Kind = PieceKind::FirstSeconds, .Seconds = spared, .From = Now(), .To = from, .Tariff = &tariff});
      pieces->push_back({.Kind = PieceKind::TariffTime,
                         .Cost = paid,
                         .Rate = tariff.PerMinuteRate,
                         .Seconds = seconds - spared,
                         .Units = units,
                         .From = from,
                         .To = AddSeconds(day, end),
                         .Tariff = &tariff,
                         .Note = note});
      if (!dialAdded)
        pieces->push_back({.Kind = PieceKind::CallCharge,
                           .Cost = tariff.DialRate,
                           .Rate = tariff.DialRate,
                           .Tariff = &tariff});
    }
    dialAdded = true;
  }

  void TellTime(const PricePiece& piece) {
    if (pieces && piece.From < piece.To) pieces->push_back(piece);
  }

  // What is left where the walk ends.
  void TellRest() {
    const Date end = AddSeconds(endDay, endSecond), first = period.PeriodStart, behind = period.PeriodEnd + 1;
    TellTime({.Kind = PieceKind::OutsidePeriod, .From = Now(), .To = std::min(end, first)});
    TellTime({.Kind = PieceKind::NoTariff, .From = std::max(Now(), first), .To = std::min(end, behind)});
    TellTime({.Kind = PieceKind::OutsidePeriod, .From = std::max(Now(), behind), .To = end});
  }

  Date Now() const { return AddSeconds(day, second); }

  // The second between a piece and the next is in neither.
  void AdvanceBehind(int segmentEnd) {
    firstPiece = false;
    misses = 0;
    second = segmentEnd == LastSecondOfDay ? 0 : segmentEnd + 1;
    if (second == 0) day += 1;
  }

  const Settings& settings;
  const Period& period;
  const ServiceRecord& service;
  Date day;
  int second;
  const Date endDay;
  const int endSecond;
  PricePieces* const pieces;  // or none

  double cost = 0;
  bool dialAdded = false;
  bool firstPiece = true;
  bool done = service.UsedTariffs < 1;  // nothing else could end the walk
  bool covered = false;
  Int16 misses = 0;  // tariffs tried in a row without effect
};

}  // namespace

double Pricing::GetDialupCost(const std::string& number, Date startDate, Date startTime, Date endDate,
                              Date endTime, PricePieces* pieces) const {
  TraceProcedure("GetDialupCost");
  const ServiceRecord* service = ServiceOf(number);
  if (service && service->DialOption == ServiceRecord::ByTariffs)
    return TariffWalk(settings, period, *service, startDate, startTime, endDate, endTime, pieces).Cost();
  if (service && service->DialOption != ServiceRecord::FixedCharge) return 0;
  const double cost = service ? service->DialFixedTariff : settings.DialCost;
  const auto kind = service ? PieceKind::FixedCharge : PieceKind::DefaultRate;
  if (pieces) pieces->push_back({.Kind = kind, .Cost = cost, .Rate = cost});
  return cost;
}

}  // namespace qel
