// One pass over a log: its lines, one after the other, become connections, each priced when it closes.
//
// The three states are idle, dialling (CurrentService is a slot) and connected.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/AnalysisResult.h"
#include "analysis/Pricing.h"
#include "modemlog/LineClassifier.h"
#include "modemlog/LogFile.h"
#include "modemlog/LogSieve.h"
#include "platform/Files.h"

namespace qel {

class LogPass {
 public:
  // Under the pricing's settings and within its period. `entries` of the log are for the progress; `result`
  // is filled from its initial state.
  LogPass(Pricing& pricing, const LogFile& logFile, float entries, AnalysisResult& result);

  // Reads the log up to the first line that can no longer matter, or one without a date, and tells the
  // display of its progress and the user of limits.
  void Run();

  // For a log that grows while it is read: what comes before the first line, and each line as it comes. The
  // last connection is open while a dial or a call is under way.
  void Begin();
  void Process(std::string_view line, const LineClassifier& classifier);
  bool HasOpenConnection() const { return Connected || CurrentService != 0; }
  bool IsConnected() const { return Connected; }
  // What would be left behind if the call that stands ended at a moment. The pass itself stays as it is.
  AnalysisResult ClosedAt(Date moment) const;

 private:
  class Close;  // of one connection

  void ReadLog();
  bool TakeLine(std::string_view line);
  bool TakeText(std::string_view line);
  void CountEntry();
  void TakeLineTime();
  Date DateOf(std::string_view line);
  void TellProgress();
  void BetweenConnections(unsigned classes);
  // Handles the lines of the log's next ones that the sieve passes.
  void PassOver(LineReader& log, const LogSieve& sieve);
  bool IsBehindPeriod() const { return LineDate > period.PeriodEnd && !Connected; }
  bool IsTooOld() const { return LineDate < period.PeriodStart - settings.MaxConnectDays; }
  void Idle(unsigned classes);
  void Dialling(unsigned classes);
  void ConnectWithoutDial();
  bool BelongsToLastConnection();
  void TakeReads();
  void TakeWrites();
  void CountReads(Int32 bytes, Int16 slot);
  void CountWrites(Int32 bytes);
  // Of drivers that write running totals the last ones before the end of a connection are its data; those
  // that come behind it tell nothing new.
  void NoteTotals(unsigned classes);
  void CountTotals(std::optional<Int32> read, std::optional<Int32> written);

  // A dial or an incoming call opens a connection and finds the totals that it belongs to. A dial line with a
  // number that no dial string can be leaves nothing behind. Reaching MaxConnections or MaxServices is told
  // to the user and sets the flag that ends the pass. Errors inside are passed over, statement by statement.
  void NewDial();
  void OpenConnection(const std::string& number);
  void OpenSlot(const std::string& number);
  Int16 FindSlot(const std::string& number) const;

  // One with a record and a slot to close; no connection is open behind it.
  void CloseBy(const std::function<void(Close&)>& steps);
  // The three ways in which a connection ends: by its disconnect line (one that ended before the period is
  // forgotten with all before it), by a line that opens another one, and by the end of the log. The last two
  // estimate the end by NoDisconDuration and NoDisconData.
  void OrdinaryClose();
  void CloseAtLine();
  void CloseNoDisconnect();
  void CloseAtEndOfLog();
  void ForgetTimeBeforePeriod();

  ConnectionRecord& Connection() { return result.Connections[result.ConnectionCount]; }

  // The vars of one connection, but for LastService.
  void ClearAnalysisVars();
  // Empties slots and connections, but not all of each: a slot keeps AltNumber, DialCost, ServiceCost, Blocks
  // and FreeSeconds, a connection its byte counts and FreeSeconds.
  void ClearAnalysisArrays();

  Pricing& pricing;
  const Settings& settings;
  const Period& period;
  const LogFile& logFile;
  const float entries;
  AnalysisResult& result;

  std::string CurrentLine;  // the line in hand, in capitals, where it is of some class
  Date LineDate = 0, LineTime = 0;
  std::string LineDateText;  // the characters that LineDate was read from; most lines repeat them
  bool Connected = false;
  Int16 CurrentService;          // slot of the dial under way; 0 none
  Int16 LastService;             // slot of the latest dial; survives the connection, for the byte counts
  const unsigned TotalsClasses;  // classes of lines that hold running totals
  std::optional<Int32> ReadTotal, WriteTotal;  // the last ones of the connection in hand
  bool TotalsCounted = false;                  // those of the latest connection were
  bool AnsweredPending = false;                // the dial under way is an incoming call
  bool KeepReading = true;
  Int32 ProgressChunk;  // entries between two words on the progress
  Int32 NextProgress;   // the entry that gives the next one
};

}  // namespace qel
