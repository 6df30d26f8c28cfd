#include "analysis/LogPass.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <utility>

#include "analysis/ConnectionNotes.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "modemlog/LogLine.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr int ByteCountWindow = 20;  // seconds behind a connection's end in which its byte counts are taken

constexpr unsigned AnyDisconnect = UserDisconnectLine | HostDisconnectLine;
constexpr unsigned AnyOpening = ConnectLine | DialLine | AnswerLine;

unsigned ClassesOfTotals(const Settings& settings) {
  return (FindsRunningTotals(settings.ModemReads) ? ReadsLine : NoClass) |
         (FindsRunningTotals(settings.ModemWrites) ? WritesLine : NoClass);
}

bool NextLine(LineReader& log, std::string_view& line) {
  bool found = false;
  Attempt([&] { found = log.Next(line); });
  return found;
}

}  // namespace

LogPass::LogPass(Pricing& pricing, const LogFile& logFile, float entries, AnalysisResult& result)
    : pricing(pricing),
      settings(pricing.settings),
      period(pricing.period),
      logFile(logFile),
      entries(entries),
      result(result),
      TotalsClasses(ClassesOfTotals(settings)) {}

void LogPass::Run() {
  Begin();
  TraceStep("Progress Chunk");
  CurrentDisplay().ShowProgress(true);
  ProgressChunk = NextProgress = Int32(std::floor(entries / 10));
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ReadLog();
  TraceStep("Finished Processing");
  if (Connected) CloseAtEndOfLog();
  CurrentDisplay().ShowProgress(false);
}

void LogPass::Begin() {
  TraceStep("Service Arrays");
  Attempt([this] { result.ServiceTotals.Make(settings.MaxServices); });
  TraceStep("Connection Arrays");
  Attempt([this] { result.Connections.Make(settings.MaxConnections); });
  TraceStep("Penalty Arrays");
  Attempt([this] { pricing.Begin(); });
  TraceStep("Clr Analysis Vars");
  ClearAnalysisVars();
  TraceStep("Clr Analysis Arrays");
  ClearAnalysisArrays();
}

void LogPass::ReadLog() {
  std::optional<LineReader> log;
  std::optional<LineClassifier> classifier;
  const bool opened = Attempt([&] {
    classifier.emplace(ResponsesOf(settings));
    log.emplace(logFile.CurrentLogPath);
  });
  if (!opened) return;
  std::optional<LogSieve> sieve;
  for (std::string_view line; KeepReading && NextLine(*log, line);) {
    if (!sieve && !Attempt([&] { sieve.emplace(ResponsesOf(settings), log->Held()); })) return;
    Process(line, *classifier);
    if (result.ServicesExceeded || result.ConnectionsExceeded) KeepReading = false;
    if (KeepReading) PassOver(*log, *sieve);
  }
  Attempt([&log] { log->Close(); });
}

void LogPass::ClearAnalysisVars() {
  Connected = false;
  CurrentService = 0;
  ReadTotal = WriteTotal = std::nullopt;
  TotalsCounted = false;
}

void LogPass::ClearAnalysisArrays() {
  for (int i = 0; i <= result.ServiceTotals.Last(); ++i) {
    ServiceTotal& slot = result.ServiceTotals[i];
    slot.Number.clear();
    slot.Seconds = 0;
    slot.Connections = 0;
    slot.TotalCost = 0;
    slot.BytesRead = 0;
  }
  for (int i = 1; i <= result.Connections.Last(); ++i) {
    ConnectionRecord& connection = result.Connections[i];
    connection.StartDate = connection.StartTime = connection.EndDate = connection.EndTime = 0;
    connection.Number.clear();
    BeginNotes(connection, ConnectionKind::Plain);
    connection.Answered = false;
  }
}

void LogPass::TakeLineTime() {
  Attempt([this] { LineTime = TimeOfLine(CurrentLine); });
}

void LogPass::TellProgress() {
  if (result.EntriesProcessed != NextProgress || ProgressChunk < 1) return;
  NextProgress += ProgressChunk;
  const double percent = std::floor(result.EntriesProcessed / static_cast<double>(entries) * 100);
  if (percent <= 100) {
    CurrentDisplay().StatusText("Please Wait .....Processing  " + NumberText(percent) + "%");
    CurrentDisplay().Progress(Int16(percent));
  }
  CurrentHost().Yield();
}

Date LogPass::DateOf(std::string_view line) {
  if (line.size() >= DateLength && LineDateText.size() == DateLength &&
      std::memcmp(line.data(), LineDateText.data(), DateLength) == 0)
    return LineDate;
  LineDateText = line.substr(0, DateLength);
  return GetLineDate(line);
}

// Dates and counts the line; false where it is none to go on with.
bool LogPass::TakeLine(std::string_view line) {
  if (IsBlankLine(line)) return false;
  LineDate = DateOf(line);
  if (LineDate == 0) {
    KeepReading = false;
    result.UndatedLineMet = true;
    return false;
  }
  CountEntry();
  return true;
}

void LogPass::CountEntry() {
  Attempt([this] { ++result.EntriesProcessed; });
  Attempt([this] { TellProgress(); });
}

// The line in capitals, and its place in the trace: nothing can fail in a line of no class.
bool LogPass::TakeText(std::string_view line) {
  TraceProcedure("Process");
  return Attempt([&] {
    std::string& step = CurrentSurroundings().StepTrace;  // the room that it has serves for all lines
    step = "Log Entry: ";
    step += std::to_string(result.EntriesProcessed);
    CurrentLine.resize(line.size());
    std::ranges::transform(line, CurrentLine.begin(), [](char c) {
      return static_cast<char>(UpperCase(static_cast<unsigned char>(c)));
    });
  });
}

// A connection that finds no room is passed over, with all its lines: Connected tells.
void LogPass::ConnectWithoutDial() {
  TakeLineTime();
  Connected = Attempt([this] {
    const Int16 number = result.ConnectionCount + 1;
    ConnectionRecord connection = result.Connections[number];
    connection.StartDate = LineDate;
    connection.StartTime = LineTime;
    connection.Number = UndialledNumber;
    BeginNotes(connection, ConnectionKind::NoDialLine);
    result.Connections[number] = std::move(connection);
    result.ConnectionCount = number;
  });
  if (Connected) Attempt([this] { result.ServiceTotals[0].Number = "Unknown"; });
}

// Only times of day are compared: a line earlier in any day than the connection's end passes.
bool LogPass::BelongsToLastConnection() {
  return SecondsBetween(Connection().EndTime, LineTime) < ByteCountWindow;
}

void LogPass::TakeReads() {
  TakeLineTime();
  Int32 bytes;
  bool taken = false;
  Attempt([&] {
    if (!BelongsToLastConnection()) return;
    bytes = GetReadBytes(settings, CurrentLine);
    taken = true;
  });
  if (taken) CountReads(bytes, LastService);
}

void LogPass::CountReads(Int32 bytes, Int16 slotNumber) {
  Connection().BytesRead = bytes;
  Attempt([&] { result.ServiceTotals[slotNumber].BytesRead += bytes; });
  Attempt([&] { NoteBytesRead(Connection(), bytes); });
  Attempt([&] {
    ServiceTotal& slot = result.ServiceTotals[slotNumber];
    result.LastCosts.DataCostNow = pricing.GetDataCost(slot.Number, bytes, Connection().StartDate);
    slot.TotalCost += result.LastCosts.DataCostNow;
  });
}

void LogPass::TakeWrites() {
  TakeLineTime();
  Attempt([this] {
    if (!BelongsToLastConnection()) return;
    CountWrites(GetWriteBytes(settings, CurrentLine));
  });
}

void LogPass::CountWrites(Int32 bytes) {
  NoteBytesWritten(Connection(), bytes);
  Connection().BytesWritten = bytes;
}

void LogPass::NoteTotals(unsigned classes) {
  if (classes & TotalsClasses & ReadsLine)
    Attempt([this] { ReadTotal = GetReadBytes(settings, CurrentLine); });
  if (classes & TotalsClasses & WritesLine)
    Attempt([this] { WriteTotal = GetWriteBytes(settings, CurrentLine); });
}

void LogPass::Idle(unsigned classes) {
  const bool DialledPending = classes & DialLine;
  AnsweredPending = classes & AnswerLine;
  if (DialledPending || AnsweredPending) {
    NewDial();
    Connected = false;
  }
  if (classes & ConnectLine) ConnectWithoutDial();
  if (TotalsCounted) classes &= ~TotalsClasses;
  if (classes & ReadsLine) TakeReads();
  if (classes & WritesLine) TakeWrites();
}

void LogPass::Dialling(unsigned classes) {
  Connected = classes & ConnectLine;
  if (!Connected) return;
  TakeLineTime();
  Attempt([this] {
    ConnectionRecord& connection = Connection();
    BeginNotes(connection,
               AnsweredPending && settings.CalcCosts ? ConnectionKind::NoCost : ConnectionKind::Plain);
    connection.StartDate = LineDate;
    connection.StartTime = LineTime;
    AnsweredPending = false;
  });
}

void LogPass::BetweenConnections(unsigned classes) {
  if (classes & AnyDisconnect) {
    if (CurrentService > 0) --result.ConnectionCount;  // a dial that never connected gives its number back
    CurrentService = 0;
  }
  if (CurrentService == 0) Idle(classes);
  if (CurrentService != 0) Dialling(classes);  // one line may both dial and connect
}

void LogPass::Process(std::string_view line, const LineClassifier& classifier) {
  KeepReading = true;  // whatever the line before said
  if (!TakeLine(line)) return;
  if (IsBehindPeriod()) {
    KeepReading = false;
    return;
  }
  if (IsTooOld()) return;
  const unsigned classes = classifier.ClassesOf(line);
  if (Connected && !(classes & (AnyOpening | AnyDisconnect | TotalsClasses))) return;
  if (classes != NoClass && !TakeText(line)) return;
  if (Connected) {
    if (!(classes & AnyOpening)) {
      NoteTotals(classes);
      if (classes & AnyDisconnect) OrdinaryClose();
      return;
    }
    CloseNoDisconnect();  // the disconnect entry is lost; the line is handled anew
    KeepReading = !IsBehindPeriod();
  }
  if (KeepReading) BetweenConnections(classes);
}

// They have the date of the line in hand and no class.
void LogPass::PassOver(LineReader& log, const LogSieve& sieve) {
  if (IsBehindPeriod()) return;  // the next line ends the pass
  const Passed passed = sieve.Pass(log.Held(), LineDateText);
  if (passed.Lines == 0) return;
  log.PassOver(passed.Bytes);
  if (ProgressChunk < 1)  // nobody waits for one of them
    Attempt([&] { result.EntriesProcessed += Int32(passed.Lines); });
  else
    for (std::size_t i = 0; i < passed.Lines; ++i) CountEntry();
  if (!Connected && !IsTooOld()) BetweenConnections(NoClass);
}

}  // namespace qel
