#include <algorithm>
#include <cmath>

#include "analysis/Pricing.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"

namespace qel {

namespace {

double SecondsToHours(float seconds) { return seconds / 3600.0; }

double Charge(PricePiece piece, PricePieces* pieces) {
  if (piece.Seconds == 0) return 0;
  piece.Cost = piece.Rate * SecondsToHours(static_cast<float>(piece.Seconds));
  if (pieces) pieces->push_back(piece);
  return piece.Cost;
}

}  // namespace

void UsageTable::Make(Int16 lastService) {
  byService.Make(lastService);
  for (int i = 0; i <= lastService; ++i) byService[i].Make(LastPeriod);
}

const ServiceRecord* Pricing::ServiceOf(const std::string& number) const {
  const Int16 index = GetServiceIndex(settings, number);
  return index < 0 ? nullptr : &settings.Services[index];
}

double Pricing::FlexibleCost(Int16 index, Int32 seconds, Date date, PricePieces* pieces) {
  const ServiceRecord& service = settings.Services[index];
  const Int32 limit = Int32(service.UpToHours) * 3600;
  const Int16 number = GetPeriodNumber(std::max(date, period.PeriodStart), service.PenaltyPeriod);
  Int32& sum = Penalties.At(index, number).Seconds;
  const Int32 used = sum + seconds;
  const Int32 within = used > limit ? std::max<Int32>(seconds - (used - limit), 0) : seconds;
  PricePiece piece{.Kind = PieceKind::WithinHours, .Rate = service.FlexRate, .Seconds = within};
  piece.UsedBefore = sum;
  piece.UsedAfter = used;
  const double normal = Charge(piece, pieces);
  piece.Kind = PieceKind::BeyondHours;
  piece.Rate = service.FlexRate2;
  piece.Seconds = seconds - within;
  const double cost = normal + Charge(piece, pieces);
  sum = used;
  return cost;
}

double Pricing::GetServiceCost(const std::string& number, Int32 seconds, Date date, PricePieces* pieces) {
  TraceProcedure("GetServiceCost");
  const Int16 index = GetServiceIndex(settings, number);
  if (index < 0)
    return Charge({.Kind = PieceKind::DefaultRate, .Rate = settings.CostPerHour, .Seconds = seconds}, pieces);
  const double rate = settings.Services[index].ServiceRate;
  switch (settings.Services[index].ServiceOption) {
    case ServiceRecord::FlatRate:
      return Charge({.Kind = PieceKind::FlatRate, .Rate = rate, .Seconds = seconds}, pieces);
    case ServiceRecord::FlexibleRate:
      return FlexibleCost(index, seconds, date, pieces);
    default:
      return 0;
  }
}

Int16 Pricing::GetPeriodNumber(Date date, const std::string& periodName) const {
  const double days = DaysBetween(period.PeriodStart, date);
  double number = 0;
  if (periodName == "Month") {
    const double length = DaysBetween(period.PeriodStart, AddMonths(period.PeriodStart, 1));
    number = std::floor(days / length);
  } else if (periodName == "Week") {
    number = std::floor(days / 7);
  } else if (periodName == "Day") {
    number = days;
  }
  return number < 1 ? Int16(0) : Int16(number);
}

double Pricing::ApplyMaxCharge(double cost, const std::string& number, PricePieces* pieces) const {
  const ServiceRecord* service = ServiceOf(number);
  if (!service || service->MaxCharge <= 0 || cost <= service->MaxCharge) return cost;
  if (pieces)
    pieces->push_back(
        {.Kind = PieceKind::MaxCharge, .Cost = service->MaxCharge - cost, .Rate = service->MaxCharge});
  return service->MaxCharge;
}

Int16 Pricing::ServiceBlockMinutes(const std::string& number) const {
  const ServiceRecord* service = ServiceOf(number);
  return service ? service->Block : Int16(0);
}

Int16 GetBlockCount(Int16 minutes, Int32 seconds) {
  if (minutes == 0) return 0;
  const float connected = static_cast<float>(seconds) / 60;
  const Int16 whole = Int16(std::floor(connected / static_cast<float>(minutes)));
  const float left = connected - static_cast<float>(whole * minutes);
  return left > 0 ? whole + 1 : whole;
}

}  // namespace qel
