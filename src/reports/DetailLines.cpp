#include "reports/DetailLines.h"

#include <cmath>

#include "analysis/ConnectionNotes.h"
#include "analysis/DataCost.h"
#include "analysis/DialupCost.h"
#include "analysis/ServiceCost.h"
#include "core/Display.h"
#include "core/ErrorHandler.h"
#include "platform/CodePage.h"
#include "platform/Host.h"
#include "settings/Settings.h"

namespace qel {

namespace {

bool NotesTellError(const ConnectionRecord& connection) {
  return UpperCase(connection.Notes).find("ERROR") != std::string::npos;
}

Int32 BillableSeconds(const ConnectionRecord& connection, Int32 seconds) {
  const Int16 block = ServiceBlockMinutes(connection.Number);
  if (block <= 0) return seconds;
  return GetBlockCount(block, seconds) * (block * 60);
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

// Leaves the three costs in the analysis's variables, where those of the last priced connection stay. A cost
// that fails is 0.
void Price(const ConnectionRecord& c, Int16 index, Int32 billable) {
  DialCostNow = ServiceCostNow = DataCostNow = 0;
  Attempt([&] {
    DialCostNow = std::fabs(GetDialupCost(c.Number, c.StartDate, c.StartTime, c.EndDate, c.EndTime, index));
  });
  Attempt([&] {
    ServiceCostNow =
        ApplyMaxCharge(GetServiceCost(c.Number, billable - c.FreeSeconds, c.StartDate), c.Number);
  });
  Attempt([&] { DataCostNow = GetDataCost(c.Number, c.BytesRead, c.StartDate); });
}

// The notes of a connection while its line is made; a connection comes out as it went in.
class NotesKept {
 public:
  explicit NotesKept(std::string& notes) : notes(notes), kept(notes) {}
  ~NotesKept() { notes.swap(kept); }
  NotesKept(const NotesKept&) = delete;
  NotesKept& operator=(const NotesKept&) = delete;
  const std::string& Text() const { return kept; }

 private:
  std::string& notes;
  std::string kept;
};

// Once for every percent, however many connections there are: windows repaint at each.
void TellProgress(int percent) {
  CurrentDisplay().Progress(Int16(percent));
  CurrentHost().Yield();
}

// What is wrapped in attempts of its own comes last: what fails before it can be run again from the
// beginning.
void VisitConnection(Int16 index, const std::function<void(const DetailLine&)>& visit) {
  ConnectionRecord& connection = Connections[index];
  const bool hasError = NotesTellError(connection);
  if (hasError && !ShowErrors) return;
  const NotesKept kept(connection.Notes);
  const Int32 seconds = Int32(GetConnectionSeconds(index));
  Int32 billable = seconds;
  Attempt([&] { billable = BillableSeconds(connection, seconds); });
  MergeNotes(connection, kept.Text());
  DetailLine line{connection, index, hasError, seconds, 0, 0, 0, 0};
  if (CalcCosts) {
    if (!connection.Answered) {
      Price(connection, index, billable);
      line.ConnectionCost = DialCostNow + ServiceCostNow + DataCostNow;
    }
    line.DialCost = DialCostNow;
    line.ServiceCost = ServiceCostNow;
    line.DataCost = DataCostNow;
  }
  Attempt([&] { visit(line); });
}

}  // namespace

void ForEachDetailLine(const std::function<void(const DetailLine&)>& visit) {
  Attempt([] { Penalties.Make(MaxServices); });
  int shown = 0;
  for (int i = 1; i <= ConnectionCount; ++i) {
    Attempt([&] { VisitConnection(Int16(i), visit); });
    if (const int percent = 100 * i / int{ConnectionCount}; percent > shown) TellProgress(shown = percent);
  }
}

}  // namespace qel
