// The pieces that a price is made of, in the order in which they are added up: what a user is told who asks
// why a connection costs what it costs.
#pragma once

#include <vector>

#include "settings/ServiceRecords.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

enum class PieceKind {
  DefaultRate,  // of a number that is no service's: a call, time or data
  // Of the call.
  FixedCharge,
  FirstSeconds,  // of the call, which the tariff's rate spares
  TariffTime,
  CallCharge,     // of the tariff in which the call began
  OutsidePeriod,  // is not priced
  NoTariff,       // from here on no tariff holds
  TakenPositive,  // a sum below 0 counts as its amount
  // Of the time on line.
  Blocks,    // begun ones count whole
  FreeTime,  // is not charged
  FlatRate,
  WithinHours,  // of the charging period, at the first rate
  BeyondHours,  // at the other one
  MaxCharge,    // what it takes off
  // Of the data.
  Allowance,  // what it spares
  BeyondAllowance
};

// How a piece of tariff time writes its units into the notes.
enum class UnitNote { Always, Once, AfterDash };

// What does not apply to a kind is 0.
struct PricePiece {
  PieceKind Kind;
  double Cost = 0;
  double Rate = 0;  // per call, tariff unit, hour or megabyte
  Int32 Seconds = 0;
  Int16 Units = 0;         // begun units of the tariff, or blocks
  Int16 BlockMinutes = 0;  // of each
  double Bytes = 0;
  Date From = 0, To = 0;                 // day and time
  const TariffRecord* Tariff = nullptr;  // of the settings under which it was priced
  UnitNote Note = UnitNote::Always;      // of tariff time
  double UsedBefore = 0,
         UsedAfter = 0;  // seconds or bytes of the charging period; the piece's call between them

  // Whether it has a rate.
  bool IsCharged() const {
    using enum PieceKind;
    return Kind != FirstSeconds && Kind != OutsidePeriod && Kind != NoTariff && Kind != TakenPositive &&
           Kind != Blocks && Kind != FreeTime && Kind != Allowance;
  }
};

using PricePieces = std::vector<PricePiece>;

// Those of a connection: each sums to its part of the cost.
struct CallPieces {
  PricePieces Dialup, Service, Data;
};

inline double SumOf(const PricePieces& pieces) {
  double sum = 0;
  for (const auto& piece : pieces) sum += piece.Cost;
  return sum;
}

}  // namespace qel
