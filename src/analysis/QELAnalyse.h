// The analysis: one pass over the current log for the period, and what it leaves behind. The reports read the
// two result arrays; the rest is the state of the pass. There is never a second pass running.
#pragma once

#include <string>

#include "values/BoundedArray.h"
#include "values/Calendar.h"
#include "values/CheckedInteger.h"

namespace qel {

// The numbers of connections whose number is not known.
inline constexpr char AnsweredNumber[] = "Answered Call";
inline constexpr char UndialledNumber[] = "Unknown Service";

// One rebuilt connection.
struct ConnectionRecord {
  Date StartDate = 0;
  Date StartTime = 0;
  Date EndDate = 0;  // of the disconnect line, or the estimate
  Date EndTime = 0;
  std::string Number;  // as dialled; AnsweredNumber; UndialledNumber without a dial line
  std::string Notes;
  bool Answered = false;
  Int32 BytesRead;
  Int32 BytesWritten;
  Int32 FreeSeconds;       // in the service's free period
  Int16 Slot;              // of ServiceTotals, in which it was counted
  std::string SlotNumber;  // which the slot had when it was
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

// What one service has used in one charging period.
struct PeriodUsage {
  Int32 Seconds;
  Int32 Bytes;
};

// The running use by service (index into Services) and period number. Raises 9 beyond MaxServices or period
// 100.
class UsageTable {
 public:
  static constexpr int LastPeriod = 100;

  void Make(Int16 lastService);
  PeriodUsage& At(int service, int period) { return byService[service][period]; }

 private:
  BoundedArray<BoundedArray<PeriodUsage>> byService;
};

// What an analysis leaves behind.
struct AnalysisResult {
  BoundedArray<ConnectionRecord> Connections;  // 0 to MaxConnections; 0 is never used
  Int16 ConnectionCount;                       // the last one in use
  BoundedArray<ServiceTotal> ServiceTotals;    // 0 to MaxServices; 0 is the group "Unknown"
  Int16 TotalsCount;                           // the highest slot in use
  Int32 EntriesProcessed;
  bool ServicesExceeded = false, ConnectionsExceeded = false;
  bool LogErrorsFound = false;    // a connection was closed without a disconnect line
  bool TariffIncomplete = false;  // a connection could not be fully priced
  bool UndatedLineMet = false;    // LogCorrupt stands for a line that this analysis met, and for nothing else
  bool ShowBlocks = false;        // the Summary shows blocks, not data; some connection has blocks
};

extern AnalysisResult analysis;  // of the running program
extern UsageTable Penalties;

// The line in hand, in capitals. Only lines of some class are kept here.
extern std::string CurrentLine;
extern Date LineDate, LineTime;
extern std::string LineDateText;       // the characters that LineDate was read from; most lines repeat them
extern Date ConnectDate, ConnectTime;  // of the open connection
extern Date DisconnectDate, DisconnectTime;  // of the connection being closed
extern bool Connected;
extern Int16 CurrentService;  // slot of the dial under way; 0 none
extern Int16 LastService;     // slot of the latest dial; survives the connection, for the byte counts
extern bool AnsweredPending;  // the dial under way is an incoming call
extern Int32 ConnectSeconds;  // of the connection being closed, as the next two lines
extern Int16 BlockMinutes, BlockCount;
extern double DialCostNow, ServiceCostNow, DataCostNow;
extern bool KeepReading;
extern Int32 ProgressChunk;  // entries between two words on the progress
extern Int32 NextProgress;   // the entry that gives the next one

// Which reports show this analysis already.
extern bool SummaryBuilt, DetailBuilt;

// Reads the current log and leaves connections and totals of PeriodStart to PeriodEnd. Tells the display of
// its progress and that a report can be shown, and the user of limits, incomplete tariffs and exceeded
// warnings. LogEntries must be known.
void Analyse();

// Takes back what an analysis has found of the log's health: the next one may never come to the same line.
void ForgetUndatedLine();

// The vars of one connection, but for LastService.
void ClearAnalysisVars();

// Empties slots and connections, but not all of each: a slot keeps AltNumber, DialCost, ServiceCost, Blocks
// and FreeSeconds, a connection its byte counts and FreeSeconds.
void ClearAnalysisArrays();

void ResetAnalysis();

}  // namespace qel
