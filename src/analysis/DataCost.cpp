#include <algorithm>

#include "analysis/Pricing.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"

namespace qel {

namespace {

double Charge(PricePiece piece, PricePieces* pieces) {
  if (piece.Bytes == 0) return 0;
  piece.Cost = piece.Bytes / BytesPerMegabyte * piece.Rate;
  if (pieces) pieces->push_back(piece);
  return piece.Cost;
}

}  // namespace

double Pricing::GetDataCost(const std::string& number, double bytes, Date date, PricePieces* pieces) {
  TraceProcedure("GetDataCost");
  if (bytes == 0) return 0;
  const Int16 index = GetServiceIndex(settings, number);
  if (index < 0)
    return Charge({.Kind = PieceKind::DefaultRate, .Rate = settings.CostPerMeg, .Bytes = bytes}, pieces);
  const ServiceRecord& service = settings.Services[index];
  const double allowance = BytesPerMegabyte * service.AfterMeg;
  Int32& used = Penalties.At(index, GetPeriodNumber(date, service.MegPeriod)).Bytes;
  const bool afresh = service.MegPeriod == "Session";  // the allowance is each connection's own
  const double before = afresh ? 0 : int{used};
  const Int32 after = Int32(bytes + before);
  const double within = after > allowance ? std::max(bytes - (after - allowance), 0.0) : bytes;
  PricePiece piece{.Kind = PieceKind::Allowance, .Bytes = within, .UsedBefore = before};
  piece.UsedAfter = after;
  Charge(piece, pieces);
  piece.Kind = PieceKind::BeyondAllowance;
  piece.Rate = service.PerMeg;
  piece.Bytes = bytes - within;
  const double cost = Charge(piece, pieces);
  used = after;
  return cost;
}

}  // namespace qel
