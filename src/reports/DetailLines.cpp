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

// Once for every percent, however many connections there are: windows repaint at each.
void TellProgress(int percent) {
  CurrentDisplay().Progress(Int16(percent));
  CurrentHost().Yield();
}

// What is wrapped in attempts of its own comes last: what fails before it can be run again from the
// beginning.
void VisitConnection(const ReportOf& of, Pricing& pricing, ConnectionRecord connection, Int16 index,
                     CallCosts& costs, const DetailVisit& visit) {
  if (IsPassedOver(of.settings, connection)) return;
  const bool hasError = NotesTellError(connection);
  const std::string notes = connection.Notes;
  DetailLine line{connection, index, hasError, Int32(GetConnectionSeconds(of.period, connection)),
                  0,          0,     0,        0};
  Int32 billable = line.Seconds;
  Attempt([&] { billable = BillableSeconds(pricing, line); });
  MergeNotes(connection, notes);
  if (of.settings.CalcCosts) {
    if (!connection.Answered) {
      Price(pricing, connection, billable, costs);
      line.ConnectionCost = costs.DialCostNow + costs.ServiceCostNow + costs.DataCostNow;
    }
    line.DialCost = costs.DialCostNow;
    line.ServiceCost = costs.ServiceCostNow;
    line.DataCost = costs.DataCostNow;
  }
  Attempt([&] { visit(line); });
}

void ForEach(const ReportOf& of, const std::function<void(Pricing& pricing, Int16 index)>& visitOne) {
  Pricing pricing(of.settings, of.period);
  Attempt([&] { pricing.Begin(); });
  int shown = 0;
  for (int i = 1; i <= of.analysis.ConnectionCount; ++i) {
    Attempt([&] { visitOne(pricing, Int16(i)); });
    if (const int percent = 100 * i / int{of.analysis.ConnectionCount}; percent > shown)
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

bool IsPassedOver(const Settings& settings, const ConnectionRecord& connection) {
  return !settings.ShowErrors && NotesTellError(connection);
}

void ForEachDetailLine(const ReportOf& of, const DetailVisit& visit) {
  ForEach(of, [&](Pricing& pricing, Int16 index) {
    VisitConnection(of, pricing, of.analysis.Connections[index], index, of.LastCosts, visit);
  });
}

void ForEachConnection(const ReportOf& of, const DetailVisit& visit) {
  CallCosts costs = of.LastCosts;
  ForEach(of, [&](Pricing& pricing, Int16 index) {
    ConnectionRecord connection = of.analysis.Connections[index];
    if (connection.StartDate == 0) return;  // dialled, and no more
    ForgetEarlierUser(connection);
    const bool answered = connection.Answered;
    VisitConnection(of, pricing, std::move(connection), index, costs, [&](DetailLine line) {
      if (answered) line.DialCost = line.ServiceCost = line.DataCost = 0;
      visit(line);
    });
  });
}

}  // namespace qel
