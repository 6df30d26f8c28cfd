#include "reports/PriceExplained.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/Pricing.h"
#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "modemlog/DialledNumber.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr Int16 MoneyDigits = 4;  // as many as rates are stored with

std::string Exactly(double amount) { return FormatCurrency(amount, MoneyDigits); }

// "1 h 20 min 5 s", of what is not 0; "0 s".
std::string Spelled(double time) {
  const auto seconds = static_cast<long long>(std::fabs(time));
  std::string text;
  const auto add = [&text](long long count, const char* unit) {
    if (count != 0) text += (text.empty() ? "" : " ") + std::to_string(count) + unit;
  };
  add(seconds / 3600, " h");
  add(seconds / 60 % 60, " min");
  add(seconds % 60, " s");
  return text.empty() ? "0 s" : (time < 0 ? "minus " : "") + text;
}

std::string Megabytes(double bytes) {
  return NumberText(std::round(bytes / BytesPerMegabyte * 1000) / 1000) + " MB";
}

std::string Per(const std::string& chargingPeriod) {
  for (const auto& [name, text] :
       {std::pair{"Day", " a day"}, {"Week", " a week"}, {"Month", " a month"}, {"Session", " a connection"}})
    if (chargingPeriod == name) return text;
  return " in all";
}

std::string Used(const std::string& before, const std::string& after) {
  return " (" + before + " used before, " + after + " after)";
}

// Writes the sentences of one connection.
class Sentences {
 public:
  Sentences(const Settings& settings, const ConnectionRecord& connection)
      : settings(settings), connection(connection) {
    const Int16 index = GetServiceIndex(settings, connection.Number);
    if (index >= 0) service = settings.Services[index];
  }

  std::string Of(PricePart part, const PricePiece& piece) const {
    using enum PieceKind;
    switch (piece.Kind) {
      case FixedCharge:
        return "Each call costs " + Exactly(piece.Rate);
      case FirstSeconds:
        return Times(piece) + ", " + piece.Tariff->Description + ": first " + Spelled(piece.Tariff->After) +
               " of the call free";
      case TariffTime:
        return Times(piece) + ", " + piece.Tariff->Description + " (" + piece.Tariff->AppliesDays + ", " +
               Hours(piece.Tariff->AppliesTimeStart, piece.Tariff->AppliesTimeEnd) + "): " + TariffUse(piece);
      case CallCharge:
        return "Each call that begins in " + piece.Tariff->Description + " costs " + Exactly(piece.Rate);
      case OutsidePeriod:
        return Times(piece) + ": not charged, outside the days of the report";
      case NoTariff:
        return Times(piece) + ": not charged, no tariff covers it";
      case TakenPositive:
        return "A sum below zero is charged as if it were above";
      default:
        return part == PricePart::Data ? OfData(piece) : OfTime(part, piece);
    }
  }

 private:
  std::string OfTime(PricePart part, const PricePiece& piece) const {
    const std::string seconds = Spelled(piece.Seconds);
    const std::string hourly = Charged(seconds, piece, " an hour");
    const std::string hours = Spelled(service.UpToHours * 3600.0) + Per(service.PenaltyPeriod) +
                              Used(Spelled(piece.UsedBefore), Spelled(piece.UsedAfter));
    switch (piece.Kind) {
      case PieceKind::Blocks:
        return "Charged by begun blocks of " + Spelled(piece.BlockMinutes * 60.0) + ": " +
               std::to_string(piece.Units) + " make " + seconds;
      case PieceKind::FreeTime:
        return seconds + " of it are free (" + Hours(service.FreeStart, service.FreeEnd) + ")";
      case PieceKind::WithinHours:
        return hourly + ", within " + hours;
      case PieceKind::BeyondHours:
        return service.UpToHours > 0 ? hourly + ", beyond " + hours : hourly;
      case PieceKind::MaxCharge:
        return "No connection costs more than " + Exactly(piece.Rate);
      case PieceKind::DefaultRate:
        return (part == PricePart::Dialup ? "Each call costs " + Exactly(piece.Rate) : hourly) + ForUnknown;
      default:
        return hourly;
    }
  }

  std::string OfData(const PricePiece& piece) const {
    const std::string bytes = Megabytes(piece.Bytes), charged = Charged(bytes, piece, " a megabyte");
    const std::string allowance =
        Megabytes(service.AfterMeg * BytesPerMegabyte) + " free" + Per(service.MegPeriod) +
        (service.MegPeriod == "Session" ? "" : Used(Megabytes(piece.UsedBefore), Megabytes(piece.UsedAfter)));
    if (piece.Kind == PieceKind::Allowance) return bytes + ", within " + allowance;
    if (piece.Kind == PieceKind::DefaultRate) return charged + ForUnknown;
    return service.AfterMeg > 0 ? charged + ", beyond " + allowance : charged;
  }

  static std::string Charged(const std::string& amount, const PricePiece& piece, const char* unit) {
    return amount + (piece.Rate == 0 ? ", not charged" : " at " + Exactly(piece.Rate) + unit);
  }

  std::string TariffUse(const PricePiece& piece) const {
    const TariffRecord& tariff = *piece.Tariff;
    const std::string seconds = Spelled(piece.Seconds);
    if (tariff.Unit == "Per Minute") return Charged(seconds, piece, " a minute");
    if (tariff.Unit == "Per Second") return Charged(seconds, piece, " a second");
    const int length = tariff.UnitMins * 60 + tariff.UnitSecs;
    return seconds + " are " + std::to_string(piece.Units) + " begun units of " +
           Spelled(std::max(length, 1)) + " at " + Exactly(piece.Rate);
  }

  std::string Clock(Date time) const { return FormatDate(time, TimeFormat(settings.ForceAMPM)); }
  // With the day where the connection has more than one.
  std::string Moment(Date at) const {
    return (connection.StartDate == connection.EndDate ? "" : FormatDate(at, "Short Date") + " ") + Clock(at);
  }
  std::string Times(const PricePiece& piece) const { return Moment(piece.From) + " to " + Moment(piece.To); }
  static std::string Hours(Date from, Date to) {
    constexpr char clock[] = "h:mmAM/PM";  // as lists of tariffs have them
    return FormatDate(from, clock) + " - " + FormatDate(to, clock);
  }

  static constexpr char ForUnknown[] = ", the default for numbers of no service";

  const Settings& settings;
  const ConnectionRecord& connection;
  ServiceRecord service;  // an empty one for a number of none
};

// What is left over by rounding goes from one piece to the next, so that no more than the last digit of any
// is moved.
void ShareOut(double whole, double (*rounded)(double), ExplainedPiece* first, ExplainedPiece* behind) {
  while (behind != first && behind[-1].Piece->Cost == 0) --behind;
  double sum = 0, shown = 0;
  for (; first != behind; ++first) {
    sum += first->Piece->Cost;
    const double reached = rounded(first + 1 == behind ? whole : sum);
    first->Cost = rounded(reached - std::exchange(shown, reached));
  }
}

double RoundedTo(Int16 digits, double amount) {
  const auto places = static_cast<std::size_t>(std::max<int>(digits, 0));
  return TextToNumber(FormatNumber(amount, places == 0 ? "0" : "0." + std::string(places, '0')));
}

double AsExactly(double amount) { return RoundedTo(std::max(Region.CurrencyDigits, MoneyDigits), amount); }

std::string WhyNothing(const Settings& settings, const DetailLine& line) {
  if (!settings.CalcCosts) return "The options say that no costs are calculated";
  if (line.Connection.Answered) return "A call that came in costs nothing";
  return "Nothing is charged for it";
}

}  // namespace

long SecondsOf(const PricePiece& piece) {
  return piece.From < piece.To ? std::lround((piece.To - piece.From) * SecondsPerDay) : long{piece.Seconds};
}

std::vector<ExplainedPiece> ExplainPrice(const Settings& settings, const DetailLine& line,
                                         double (*rounded)(double)) {
  const Sentences sentences(settings, line.Connection);
  const struct {
    PricePart part;
    const PricePieces& pieces;
    double cost;
  } parts[] = {{PricePart::Dialup, line.Pieces.Dialup, line.Costs.DialCostNow},
               {PricePart::Service, line.Pieces.Service, line.Costs.ServiceCostNow},
               {PricePart::Data, line.Pieces.Data, line.Costs.DataCostNow}};
  std::vector<ExplainedPiece> explained;
  for (const auto& [part, pieces, cost] : parts) {
    for (const auto& piece : pieces) explained.push_back({part, &piece, 0, sentences.Of(part, piece)});
    ExplainedPiece* const behind = explained.data() + explained.size();
    ShareOut(cost, rounded, behind - pieces.size(), behind);
  }
  return explained;
}

std::string PriceTitle(const Settings& settings, const DetailLine& line) {
  return "Why connection " + std::to_string(line.Index) +
         (settings.CalcCosts ? " costs " + MoneyText(line.ConnectionCost) : " has no cost");
}

std::vector<PriceLine> PriceLines(const Settings& settings, const DetailLine& line) {
  static constexpr const char* names[] = {"Dial-up", "Service", "Data"};
  std::vector<PriceLine> lines;
  double left = RoundedTo(Region.CurrencyDigits, line.ConnectionCost);
  for (const auto& [part, piece, cost, text] : ExplainPrice(settings, line, AsExactly)) {
    lines.push_back({names[static_cast<std::size_t>(part)], text, Exactly(cost)});
    left -= cost;
  }
  if (lines.empty()) return {{"", WhyNothing(settings, line), settings.CalcCosts ? MoneyText(0) : ""}};
  if (left = AsExactly(left); left != 0) lines.push_back({"", "Rounded", Exactly(left)});
  return lines;
}

}  // namespace qel
