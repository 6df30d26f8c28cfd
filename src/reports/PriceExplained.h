// Why a connection costs what it costs: each piece of its price as a sentence and an amount, which sum to
// what the report shows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "reports/DetailLines.h"

namespace qel {

// Whether a Details report explains its prices, and whether of one connection alone.
struct Explaining {
  bool Wanted = false;
  std::optional<int> Only = {};  // its number in the Details

  bool Includes(const DetailLine& line) const { return !Only || *Only == line.Index; }
};

enum class PricePart { Dialup, Service, Data };

struct ExplainedPiece {
  PricePart Part;
  const PricePiece* Piece;  // of the line
  double Cost;              // as it is to be shown, which can be a last digit off the piece's own
  std::string Text;
};

// The pieces of all parts in their order. `rounded` makes of an amount what is shown of it: the costs of a
// part sum to the part as it is shown.
std::vector<ExplainedPiece> ExplainPrice(const Settings& settings, const DetailLine& line,
                                         double (*rounded)(double));

// The time of a piece that has one, and else 0.
long SecondsOf(const PricePiece& piece);

// "Why connection 17 costs $1.23"
std::string PriceTitle(const Settings& settings, const DetailLine& line);

// What people read of it: a part's name, a sentence, and an amount of money, which sum to the connection's.
struct PriceLine {
  std::string Part, Text, Cost;
};

// Amounts have the decimals of rates, so that each can be worked out, and the last line what rounding leaves
// over. At least one line: of a connection without any piece it tells why.
std::vector<PriceLine> PriceLines(const Settings& settings, const DetailLine& line);

}  // namespace qel
