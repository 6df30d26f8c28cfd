#include <algorithm>
#include <cmath>

#include "analysis/Pricing.h"
#include "analysis/TariffDays.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"

namespace qel {

namespace {

enum DialOption { FixedCharge = 1, TariffCharge = 2 };

constexpr int LastMinute = 59;  // seconds that a tariff's end includes
constexpr int LastSecondOfDay = SecondsPerDay - 1;

// How a piece writes its units into the notes.
enum class UnitNote { Once, AfterDash, Always };

// Cost of `seconds` in one tariff, its charge per call apart. The first piece of a call is spared the
// tariff's allowance, unless it is charged by units; begun units are paid whole, and `units` tells how many
// there were.
double GetSegmentCost(const TariffRecord& tariff, Int32 seconds, bool firstPiece, Int16& units) {
  const bool perMinute = tariff.Unit == "Per Minute";
  if (perMinute || tariff.Unit == "Per Second") {
    if (firstPiece) seconds = std::max<Int32>(seconds - tariff.After, 0);
    return seconds / (perMinute ? 60.0 : 1.0) * tariff.PerMinuteRate;
  }
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
             Date startTime, Date endDate, Date endTime, std::string* notes)
      : settings(settings),
        period(period),
        service(service),
        day(startDate),
        second(SecondOfDay(startTime)),
        endDay(endDate),
        endSecond(SecondOfDay(endTime)),
        told(notes) {}

  double Cost() {
    if (service.UsedTariffs < 1) return 0;  // nothing that could end the walk
    if (told) notes = *told;
    while (!done) TryAllTariffs();
    if (told) told->swap(notes);
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
    if (SecondOfDay(tariff.AppliesTimeStart) > second) return Outcome::CheckEnd;
    const bool withinOneDay = endDay <= period.PeriodEnd && day >= period.PeriodStart && endDay == day;
    return withinOneDay ? TryWithinOneDay(tariff) : TryAcrossDays(tariff);
  }

  Outcome TryWithinOneDay(const TariffRecord& tariff) {
    const int segmentEnd = SecondOfDay(tariff.AppliesTimeEnd) + LastMinute;
    if (endSecond <= segmentEnd) {
      Price(tariff, endSecond - second, UnitNote::Once);
      done = covered = true;
      return Outcome::CheckEnd;
    }
    if (second > segmentEnd) return Outcome::Miss;
    Price(tariff, segmentEnd - second, UnitNote::AfterDash);
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
    const int tariffEnd = SecondOfDay(tariff.AppliesTimeEnd);
    int segmentEnd = tariffEnd + LastMinute;
    if (endDay < day && endSecond <= tariffEnd) {
      segmentEnd = endSecond;
      covered = true;
    }
    if (second > segmentEnd) return Outcome::Miss;
    Price(tariff, segmentEnd - second, UnitNote::Always);
    AdvanceBehind(segmentEnd);
    return Outcome::SameTariffAgain;
  }

  // What lies before the period is not priced, the charge per call and the first piece's allowance included.
  void EnterPeriod() {
    day = period.PeriodStart;
    second = 0;
    firstPiece = false;
    dialAdded = true;
  }

  void Price(const TariffRecord& tariff, int seconds, UnitNote form) {
    Int16 units = 0;
    cost += GetSegmentCost(tariff, seconds, firstPiece, units);
    if (!dialAdded) cost += tariff.DialRate;
    dialAdded = true;
    if (told) WriteNotes(tariff, units, form);
  }

  void WriteNotes(const TariffRecord& tariff, Int16 units, UnitNote form) {
    if (notes.find(tariff.Description) == std::string::npos) notes += " - " + tariff.Description;
    if (units <= 0) return;
    std::string unitText = " - " + std::to_string(units) + "U x " + std::to_string(tariff.UnitMins) + "Min";
    if (tariff.UnitSecs > 0) unitText += " " + std::to_string(tariff.UnitSecs) + "Sec";
    if (form == UnitNote::AfterDash) notes += " - ";  // TidyNotes takes the double dash out where it can
    if (form != UnitNote::Once || notes.find(unitText) == std::string::npos) notes += unitText;
  }

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
  std::string* const told;  // the connection's notes, or none

  std::string notes;  // what they will be
  double cost = 0;
  bool dialAdded = false;
  bool firstPiece = true;
  bool done = false;
  bool covered = false;
  Int16 misses = 0;  // tariffs tried in a row without effect
};

}  // namespace

double Pricing::GetDialupCost(const std::string& number, Date startDate, Date startTime, Date endDate,
                              Date endTime, std::string* notes) const {
  TraceProcedure("GetDialupCost");
  const ServiceRecord* service = ServiceOf(number);
  if (!service) return settings.DialCost;
  switch (service->DialOption) {
    case FixedCharge:
      return service->DialFixedTariff;
    case TariffCharge:
      return TariffWalk(settings, period, *service, startDate, startTime, endDate, endTime, notes).Cost();
    default:
      return 0;
  }
}

}  // namespace qel
