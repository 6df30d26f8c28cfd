#include "analysis/Process.h"

#include <cmath>
#include <cstring>
#include <string>
#include <utility>

#include "analysis/ConnectionClose.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/DataCost.h"
#include "analysis/NewDial.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "core/Surroundings.h"
#include "modemlog/LogLine.h"
#include "modemlog/LogStatistics.h"
#include "settings/Settings.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr int ByteCountWindow = 20;  // seconds behind a connection's end in which its byte counts are taken

constexpr unsigned AnyDisconnect = UserDisconnectLine | HostDisconnectLine;
constexpr unsigned AnyOpening = ConnectLine | DialLine | AnswerLine;

ConnectionRecord& Connection() { return analysis.Connections[analysis.ConnectionCount]; }

void TakeLineTime() {
  Attempt([] { LineTime = TimeOfLine(CurrentLine); });
}

void TellProgress() {
  if (analysis.EntriesProcessed != NextProgress || ProgressChunk < 1) return;
  NextProgress += ProgressChunk;
  const double percent =
      std::floor(analysis.EntriesProcessed / static_cast<double>(findings.LogEntries) * 100);
  if (percent <= 100) {
    CurrentDisplay().StatusText("Please Wait .....Processing  " + NumberText(percent) + "%");
    CurrentDisplay().Progress(Int16(percent));
  }
  CurrentHost().Yield();
}

Date DateOf(std::string_view line) {
  if (line.size() >= DateLength && LineDateText.size() == DateLength &&
      std::memcmp(line.data(), LineDateText.data(), DateLength) == 0)
    return LineDate;
  LineDateText = line.substr(0, DateLength);
  return GetLineDate(line);
}

// Dates and counts the line; false where it is none to go on with.
bool TakeLine(std::string_view line) {
  if (IsBlankLine(line)) return false;
  LineDate = DateOf(line);
  if (LineDate == 0) {
    KeepReading = false;
    if (!findings.LogCorrupt) findings.LogCorrupt = analysis.UndatedLineMet = true;
    return false;
  }
  Attempt([] { ++analysis.EntriesProcessed; });
  Attempt(TellProgress);
  return true;
}

// The line in capitals, and its place in the trace: nothing can fail in a line of no class.
bool TakeText(std::string_view line) {
  TraceProcedure("Process");
  return Attempt([&] {
    TraceStep("Log Entry:" + Str(analysis.EntriesProcessed));
    CurrentLine = UpperCase(line);
  });
}

void StampConnect() {
  TakeLineTime();
  ConnectDate = LineDate;
  ConnectTime = LineTime;
}

// A connection that finds no room is passed over, with all its lines: Connected tells.
void ConnectWithoutDial() {
  StampConnect();
  Connected = Attempt([] {
    const Int16 number = analysis.ConnectionCount + 1;
    ConnectionRecord connection = analysis.Connections[number];
    connection.StartDate = ConnectDate;
    connection.StartTime = ConnectTime;
    connection.Number = UndialledNumber;
    connection.Notes = NoDialLineNote;
    analysis.Connections[number] = std::move(connection);
    analysis.ConnectionCount = number;
  });
  if (Connected) Attempt([] { analysis.ServiceTotals[0].Number = "Unknown"; });
}

// Only times of day are compared: a line earlier in any day than the connection's end passes.
bool BelongsToLastConnection() { return SecondsBetween(Connection().EndTime, LineTime) < ByteCountWindow; }

void TakeReads() {
  TakeLineTime();
  Int32 bytes;
  bool taken = false;
  Attempt([&] {
    if (!BelongsToLastConnection()) return;
    bytes = GetReadBytes(CurrentLine);
    taken = true;
  });
  if (!taken) return;
  Connection().BytesRead = bytes;
  Attempt([&] { analysis.ServiceTotals[LastService].BytesRead += bytes; });
  Attempt([&] { Connection().Notes += ReadNote(bytes); });
  Attempt([&] {
    ServiceTotal& slot = analysis.ServiceTotals[LastService];
    DataCostNow = GetDataCost(slot.Number, bytes, Connection().StartDate);
    slot.TotalCost += DataCostNow;
  });
}

void TakeWrites() {
  TakeLineTime();
  Attempt([] {
    if (!BelongsToLastConnection()) return;
    const Int32 bytes = GetWriteBytes(CurrentLine);
    Connection().Notes += WrittenNote(bytes);
    Connection().BytesWritten = bytes;
  });
}

void Idle(unsigned classes) {
  const bool DialledPending = classes & DialLine;
  AnsweredPending = classes & AnswerLine;
  if (DialledPending || AnsweredPending) {
    NewDial();
    Connected = false;
  }
  if (classes & ConnectLine) ConnectWithoutDial();
  if (classes & ReadsLine) TakeReads();
  if (classes & WritesLine) TakeWrites();
}

void Dialling(unsigned classes) {
  Connected = classes & ConnectLine;
  if (!Connected) return;
  StampConnect();
  Attempt([] {
    ConnectionRecord& connection = Connection();
    connection.Notes = AnsweredPending && settings.CalcCosts ? AnsweredNote : "";
    connection.StartDate = ConnectDate;
    connection.StartTime = ConnectTime;
    AnsweredPending = false;
  });
}

void BetweenConnections(unsigned classes) {
  if (classes & AnyDisconnect) {
    if (CurrentService > 0) --analysis.ConnectionCount;  // a dial that never connected gives its number back
    CurrentService = 0;
  }
  if (CurrentService == 0) Idle(classes);
  if (CurrentService != 0) Dialling(classes);  // one line may both dial and connect
}

}  // namespace

void Process(std::string_view line, const LineClassifier& classifier) {
  if (!TakeLine(line)) return;
  bool classified = false;
  unsigned classes = NoClass;
  for (;;) {
    if (LineDate > period.PeriodEnd && !Connected) {
      KeepReading = false;
      return;
    }
    if (LineDate < period.PeriodStart - settings.MaxConnectDays) return;
    if (!classified) {
      classified = true;
      classes = classifier.ClassesOf(line);
      if (classes != NoClass && !TakeText(line)) return;
    }
    if (!Connected) return BetweenConnections(classes);
    if (!(classes & AnyOpening)) {
      if (classes & AnyDisconnect) OrdinaryClose();
      return;
    }
    CloseNoDisconnect();  // the disconnect entry is lost; the line is handled anew
  }
}

}  // namespace qel
