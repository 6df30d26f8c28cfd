#include "reports/DetailLines.h"

#include <cmath>
#include <utility>

#include "analysis/ConnectionNotes.h"
#include "analysis/Pricing.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Counts the blocks of the line and gives the seconds to pay.
Int32 BillableSeconds(const Pricing& pricing, DetailLine& line) {
  line.BlockMinutes = pricing.ServiceBlockMinutes(line.Connection.Number);
  if (line.BlockMinutes <= 0) return line.Seconds;
  line.Blocks = GetBlockCount(line.BlockMinutes, line.Seconds);
  return line.Blocks * (line.BlockMinutes * 60);
}

// Notes that told the connection's part inside the period go before those it had.
void MergeNotes(ConnectionRecord& connection, const std::string& kept) {
  if (connection.Notes.empty()) {
    connection.Notes = kept;
    return;
  }
  if (connection.Notes != kept) connection.Notes += " -" + kept;
  connection.Notes = TidyNotes(connection.Notes);
}

// One visit of all connections. The costs stay from one that is priced to the next.
class DetailWalk : ReportOf {
 public:
  DetailWalk(const ReportOf& of, CallCosts& costs) : ReportOf(of), costs(costs) {}

  void ForEach(const std::function<void(Int16 index)>& visitOne) {
    Attempt([this] { pricing.Begin(); });
    // Room for all there can be, but for a call of many tariffs: nothing fails behind what adds to the
    // running use.
    Attempt([this] { pieces.Dialup.reserve(16), pieces.Service.reserve(5), pieces.Data.reserve(2); });
    int shown = 0;
    for (int i = 1; i <= analysis.ConnectionCount; ++i) {
      Attempt([&] { visitOne(Int16(i)); });
      const int percent = 100 * i / int{analysis.ConnectionCount};
      if (percent == shown) continue;  // windows repaint at each
      CurrentDisplay().Progress(Int16(shown = percent));
      CurrentHost().Yield();
    }
  }

  // What is wrapped in attempts of its own comes last: what fails before it can be run again from the
  // beginning.
  void Visit(ConnectionRecord connection, Int16 index, const DetailVisit& visit) {
    if (IsPassedOver(settings, connection)) return;
    const std::string notes = connection.Notes;
    DetailLine line{connection, pieces, index, Int32(GetConnectionSeconds(period, connection))};
    Int32 billable = line.Seconds;
    Attempt([&] { billable = BillableSeconds(pricing, line); });
    MergeNotes(connection, notes);
    for (PricePieces* part : {&pieces.Dialup, &pieces.Service, &pieces.Data}) part->clear();
    if (settings.CalcCosts) {
      if (!connection.Answered) {
        Price(connection, line, billable);
        line.ConnectionCost = costs.DialCostNow + costs.ServiceCostNow + costs.DataCostNow;
      }
      line.Costs = costs;
    }
    Attempt([&] { visit(line); });
  }

 private:
  // What fails costs 0 and has no pieces.
  template <typename Work>
  static void PricePart(PricePieces& part, const Work& price) {
    const bool priced = Attempt([&] {
      part.clear();
      price();
    });
    if (!priced) part.clear();
  }

  void PriceTheCall(ConnectionRecord& c) {
    PricePieces& made = pieces.Dialup;
    const double cost =
        std::fabs(pricing.GetDialupCost(c.Number, c.StartDate, c.StartTime, c.EndDate, c.EndTime, &made));
    if (const double sum = SumOf(made); sum < 0)
      made.push_back({.Kind = PieceKind::TakenPositive, .Cost = cost - sum});
    std::string notes = c.Notes;
    for (const auto& piece : made) AddNote(piece, notes);
    c.Notes.swap(notes);
    costs.DialCostNow = cost;
  }

  void PriceTheService(const ConnectionRecord& c, const DetailLine& line, Int32 billable) {
    PricePieces& made = pieces.Service;
    if (line.Blocks > 0)
      made.push_back({.Kind = PieceKind::Blocks,
                      .Seconds = billable,
                      .Units = line.Blocks,
                      .BlockMinutes = line.BlockMinutes});
    if (c.FreeSeconds != 0) made.push_back({.Kind = PieceKind::FreeTime, .Seconds = c.FreeSeconds});
    const double cost = pricing.GetServiceCost(c.Number, billable - c.FreeSeconds, c.StartDate, &made);
    costs.ServiceCostNow = pricing.ApplyMaxCharge(cost, c.Number, &made);
  }

  void Price(ConnectionRecord& c, const DetailLine& line, Int32 billable) {
    costs = {};
    PricePart(pieces.Dialup, [&] { PriceTheCall(c); });
    PricePart(pieces.Service, [&] { PriceTheService(c, line, billable); });
    PricePart(pieces.Data, [&] {
      costs.DataCostNow = pricing.GetDataCost(c.Number, c.BytesRead, c.StartDate, &pieces.Data);
    });
  }

  Pricing pricing{settings, period};
  CallPieces pieces;  // of the connection in hand
  CallCosts& costs;
};

// A connection's place in the array is used again when a dial did not connect, and when the time before the
// period is forgotten; the next one finds there what it does not set itself.
void ForgetEarlierUser(ConnectionRecord& connection) {
  if (!connection.ReadNoted) connection.BytesRead = 0;
  if (!connection.WrittenNoted) connection.BytesWritten = 0;
  connection.Answered = connection.Number == AnsweredNumber;
}

}  // namespace

bool IsReported(const ReportOf& of, int number) {
  if (number < 1 || number > of.analysis.ConnectionCount) return false;
  const ConnectionRecord& connection = of.analysis.Connections[number];
  const bool onlyDialled = connection.StartDate == 0;
  return !onlyDialled && !IsPassedOver(of.settings, connection);
}

bool IsPassedOver(const Settings& settings, const ConnectionRecord& connection) {
  return !settings.ShowErrors && connection.HasError();
}

void ForEachDetailLine(const ReportOf& of, const DetailVisit& visit) {
  DetailWalk walk(of, of.LastCosts);
  walk.ForEach([&](Int16 index) { walk.Visit(of.analysis.Connections[index], index, visit); });
}

void ForEachConnection(const ReportOf& of, const DetailVisit& visit) {
  CallCosts costs = of.LastCosts;
  DetailWalk walk(of, costs);
  walk.ForEach([&](Int16 index) {
    if (!IsReported(of, index)) return;
    ConnectionRecord connection = of.analysis.Connections[index];
    ForgetEarlierUser(connection);
    const bool answered = connection.Answered;
    walk.Visit(std::move(connection), index, [&](DetailLine line) {
      if (answered) line.Costs = {};
      visit(line);
    });
  });
}

}  // namespace qel
