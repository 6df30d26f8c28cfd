// What one pass over a log leaves behind: the connections and the totals of the numbers met. The reports are
// made from them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "values/BoundedArray.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// The numbers of connections whose number is not known.
inline constexpr char AnsweredNumber[] = "Answered Call";
inline constexpr char UndialledNumber[] = "Unknown Service";

// What the notes of a connection begin with, in the order of their texts in ConnectionNotes.cpp.
enum class ConnectionKind : std::uint8_t { Plain, NoCost, NoDialLine, NoDisconnect, IncompleteTariff };

// One rebuilt connection.
struct ConnectionRecord {
  Date StartDate = 0;
  Date StartTime = 0;
  Date EndDate = 0;  // of the disconnect line, or the estimate
  Date EndTime = 0;
  std::string Number;  // as dialled; AnsweredNumber; UndialledNumber without a dial line
  std::string Notes;
  ConnectionKind Kind = ConnectionKind::Plain;
  // Its notes tell of a count that was taken for it; without that, the count may be of an earlier one in its
  // place.
  bool ReadNoted = false, WrittenNoted = false;
  bool Answered = false;
  Int32 BytesRead;
  Int32 BytesWritten;
  Int32 FreeSeconds;             // in the service's free period
  Int16 Slot;                    // of ServiceTotals, in which it was counted
  std::uint32_t SlotNumber = 0;  // of SlotNumbers: which the slot had when it was

  // Its notes tell of an error.
  bool HasError() const {
    return Kind == ConnectionKind::NoDisconnect || Kind == ConnectionKind::IncompleteTariff;
  }
};

// The totals of one number met in the log, and of its service's other number.
struct ServiceTotal {
  std::string Number;  // under which the slot was opened; "Answered Calls"; "Unknown" in slot 0
  std::string AltNumber;
  Int32 Seconds;  // before rounding to blocks
  Int16 Connections;
  double TotalCost = 0;  // dial-up, service and data
  double DialCost = 0;
  double ServiceCost = 0;
  Int32 BytesRead;
  Int16 Blocks;
  Int32 FreeSeconds;
};

// The three parts of a connection's cost, in the user's currency. A part whose calculation failed is 0.
struct CallCosts {
  double DialCostNow = 0, ServiceCostNow = 0, DataCostNow = 0;
};

struct AnalysisResult {
  BoundedArray<ConnectionRecord> Connections;  // 0 to MaxConnections; 0 is never used
  Int16 ConnectionCount;                       // the last one in use
  BoundedArray<ServiceTotal> ServiceTotals;    // 0 to MaxServices; 0 is the group "Unknown"
  Int16 TotalsCount;                           // the highest slot in use
  std::vector<std::string> SlotNumbers{""};    // that connections were counted under, each once
  Int32 EntriesProcessed;
  bool ServicesExceeded = false, ConnectionsExceeded = false;
  bool LogErrorsFound = false;    // a connection was closed without a disconnect line
  bool TariffIncomplete = false;  // a connection could not be fully priced
  bool UndatedLineMet = false;    // a line without a date ended the pass
  bool ShowBlocks = false;        // the Summary shows blocks, not data; some connection has blocks
  CallCosts LastCosts;  // of what was priced last, which an answered call repeats in the Details report

  bool SummaryBuilt = false, DetailBuilt = false;  // which reports show this result already
};

}  // namespace qel
