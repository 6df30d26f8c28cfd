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

bool NotesTellError(const ConnectionRecord& connection) {
  return UpperCase(connection.Notes).find("ERROR") != std::string::npos;
}

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

// The three costs stay until the next connection is priced. A cost that fails is 0.
void Price(Pricing& pricing, ConnectionRecord& c, Int32 billable, CallCosts& costs) {
  costs = {};
  Attempt([&] {
    costs.DialCostNow =
        std::fabs(pricing.GetDialupCost(c.Number, c.StartDate, c.StartTime, c.EndDate, c.EndTime, &c.Notes));
  });
  Attempt([&] {
    costs.ServiceCostNow = pricing.ApplyMaxCharge(
        pricing.GetServiceCost(c.Number, billable - c.FreeSeconds, c.StartDate), c.Number);
  });
  Attempt([&] { costs.DataCostNow = pricing.GetDataCost(c.Number, c.BytesRead, c.StartDate); });
}

// Puts a value back to what it was, at the end of a scope.
template <typename Value>
class Kept {
 public:
  explicit Kept(Value& value) : value(value), kept(value) {}
  ~Kept() { std::swap(value, kept); }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;
  const Value& Before() const { return kept; }

 private:
  Value& value;
  Value kept;
};

// Once for every percent, however many connections there are: windows repaint at each.
void TellProgress(int percent) {
  CurrentDisplay().Progress(Int16(percent));
  CurrentHost().Yield();
}

// What is wrapped in attempts of its own comes last: what fails before it can be run again from the
// beginning.
void VisitConnection(Pricing& pricing, Int16 index, const DetailVisit& visit) {
  ConnectionRecord& connection = analysis.Connections[index];
  if (IsPassedOver(connection)) return;
  const bool hasError = NotesTellError(connection);
  const Kept notes(connection.Notes);
  DetailLine line{connection, index, hasError, Int32(GetConnectionSeconds(period, connection)), 0, 0, 0, 0};
  Int32 billable = line.Seconds;
  Attempt([&] { billable = BillableSeconds(pricing, line); });
  MergeNotes(connection, notes.Before());
  if (settings.CalcCosts) {
    const CallCosts& costs = analysis.LastCosts;
    if (!connection.Answered) {
      Price(pricing, connection, billable, analysis.LastCosts);
      line.ConnectionCost = costs.DialCostNow + costs.ServiceCostNow + costs.DataCostNow;
    }
    line.DialCost = costs.DialCostNow;
    line.ServiceCost = costs.ServiceCostNow;
    line.DataCost = costs.DataCostNow;
  }
  Attempt([&] { visit(line); });
}

void ForEach(const std::function<void(Pricing& pricing, Int16 index)>& visitOne) {
  Pricing pricing(settings, period);
  Attempt([&] { pricing.Begin(); });
  int shown = 0;
  for (int i = 1; i <= analysis.ConnectionCount; ++i) {
    Attempt([&] { visitOne(pricing, Int16(i)); });
    if (const int percent = 100 * i / int{analysis.ConnectionCount}; percent > shown)
      TellProgress(shown = percent);
  }
}

// A connection's place in the array is used again when a dial did not connect, and when the time before the
// period is forgotten; the next one finds there what it does not set itself. Its notes tell of every count
// that was taken for it.
void ForgetEarlierUser(ConnectionRecord& connection) {
  if (connection.Notes.find(" R:") == std::string::npos) connection.BytesRead = 0;
  if (connection.Notes.find(" - W:") == std::string::npos) connection.BytesWritten = 0;
  connection.Answered = connection.Number == AnsweredNumber;
}

}  // namespace

bool IsPassedOver(const ConnectionRecord& connection) {
  return !settings.ShowErrors && NotesTellError(connection);
}

void ForEachDetailLine(const DetailVisit& visit) {
  ForEach([&](Pricing& pricing, Int16 index) { VisitConnection(pricing, index, visit); });
}

void ForEachConnection(const DetailVisit& visit) {
  const Kept costs(analysis.LastCosts);
  ForEach([&](Pricing& pricing, Int16 index) {
    ConnectionRecord& connection = analysis.Connections[index];
    if (connection.StartDate == 0) return;  // dialled, and no more
    const Kept record(connection);
    ForgetEarlierUser(connection);
    VisitConnection(pricing, index, [&](DetailLine line) {
      if (connection.Answered) line.DialCost = line.ServiceCost = line.DataCost = 0;
      visit(line);
    });
  });
}

}  // namespace qel
