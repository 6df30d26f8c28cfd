#include "analysis/Process.h"

#include <cmath>
#include <cstring>
#include <string>

#include "analysis/ConnectionClose.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/DataCost.h"
#include "analysis/NewDial.h"
#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "core/Display.h"
#include "core/ErrorHandler.h"
#include "core/ProgramState.h"
#include "modemlog/LogLine.h"
#include "modemlog/LogStatistics.h"
#include "platform/CodePage.h"
#include "platform/Host.h"
#include "platform/TextConversion.h"
#include "settings/Settings.h"

namespace qel {

namespace {

constexpr int ByteCountWindow = 20;  // seconds behind a connection's end in which its byte counts are taken

constexpr unsigned AnyDisconnect = UserDisconnectLine | HostDisconnectLine;
constexpr unsigned AnyOpening = ConnectLine | DialLine | AnswerLine;

ConnectionRecord& Connection() { return Connections[ConnectionCount]; }

void TakeLineTime() {
  Attempt([] { LineTime = TimeOfLine(CurrentLine); });
}

void TellProgress() {
  if (EntriesProcessed != NextProgress || ProgressChunk < 1) return;
  NextProgress += ProgressChunk;
  const double percent = std::floor(EntriesProcessed / static_cast<double>(LogEntries) * 100);
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
    LogCorrupt = true;
    return false;
  }
  Attempt([] { ++EntriesProcessed; });
  TellProgress();
  return true;
}

void StampConnect() {
  TakeLineTime();
  ConnectDate = LineDate;
  ConnectTime = LineTime;
}

void ConnectWithoutDial() {
  StampConnect();
  Attempt([] {
    ++ConnectionCount;
    Connection().StartDate = ConnectDate;
    Connection().StartTime = ConnectTime;
    Connection().Number = UndialledNumber;
    Connection().Notes = NoDialLineNote;
    ServiceTotals[0].Number = "Unknown";
  });
}

// Only times of day are compared: a line earlier in any day than the connection's end passes.
bool BelongsToLastConnection() { return SecondsBetween(Connection().EndTime, LineTime) < ByteCountWindow; }

void TakeReads() {
  TakeLineTime();
  Attempt([] {
    if (!BelongsToLastConnection()) return;
    ServiceTotal& slot = ServiceTotals[LastService];
    Connection().BytesRead = GetReadBytes(CurrentLine);
    slot.BytesRead += Connection().BytesRead;
    Connection().Notes += ReadNote(Connection().BytesRead);
    DataCostNow = GetDataCost(slot.Number, Connection().BytesRead, Connection().StartDate);
    slot.TotalCost += DataCostNow;
  });
}

void TakeWrites() {
  TakeLineTime();
  Attempt([] {
    if (!BelongsToLastConnection()) return;
    Connection().BytesWritten = GetWriteBytes(CurrentLine);
    Connection().Notes += WrittenNote(Connection().BytesWritten);
  });
}

void Idle(unsigned classes) {
  DialledPending = classes & DialLine;
  AnsweredPending = classes & AnswerLine;
  if (DialledPending || AnsweredPending) {
    NewDial();
    Connected = false;
  }
  Connected = classes & ConnectLine;
  if (Connected) ConnectWithoutDial();
  if (classes & ReadsLine) TakeReads();
  if (classes & WritesLine) TakeWrites();
}

void Dialling(unsigned classes) {
  Connected = classes & ConnectLine;
  if (!Connected) return;
  StampConnect();
  Attempt([] {
    Connection().StartDate = ConnectDate;
    Connection().StartTime = ConnectTime;
    Connection().Notes.clear();
    if (!AnsweredPending) return;
    if (CalcCosts) Connection().Notes = AnsweredNote;
    AnsweredPending = false;
  });
}

void BetweenConnections(unsigned classes) {
  if (classes & AnyDisconnect) {
    if (CurrentService > 0) --ConnectionCount;  // a dial that never connected gives its number back
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
    if (LineDate > PeriodEnd && !Connected) {
      KeepReading = false;
      return;
    }
    if (LineDate < PeriodStart - MaxConnectDays) return;
    if (!classified) {
      classified = true;
      classes = classifier.ClassesOf(line);
      if (classes != NoClass) {
        CurrentLine = UpperCase(line);
        ProcedureTrace = "Process";  // nothing can fail in a line of no class
        StepTrace = "Log Entry:" + Str(EntriesProcessed);
      }
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
