#include "modemlog/LogExamination.h"

#include <algorithm>
#include <limits>

#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "modemlog/LogLine.h"
#include "platform/Files.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

bool IsTextByte(unsigned char byte) {
  return (byte >= 32 && byte < 127) || byte == 9 || byte == 10 || byte == 13;
}

Int32 LengthOf(const LogFile& logFile) {
  const auto length = FileLength(logFile.CurrentLogPath);
  return Int32(std::min<std::int64_t>(length, std::numeric_limits<std::int32_t>::max()));
}

void ShowLoading(int percent) {
  CurrentDisplay().SplashText("Please Wait .....Loading " + Str(percent) + "%");
  CurrentHost().Yield();
}

// Tells the splash window at every multiple of the step between two positions.
void ShowLoadingUpTo(int position, int before, int step, Int32 length) {
  if (step < 1) return;
  for (int next = (before / step + 1) * step; next <= position; next += step)
    ShowLoading(Int16(100.0 * next / length));
}

// True where a byte before the last one of the file is none of a text.
bool HoldsBadByte(const LogFile& logFile, Int32 length, bool showProgress, int step) {
  BlockReader file(logFile.CurrentLogPath);
  auto left = static_cast<std::size_t>(length - 1);
  for (;;) {
    const std::string_view block = file.Next().substr(0, left);
    if (block.empty()) return false;
    if (!std::ranges::all_of(block, [](char c) { return IsTextByte(static_cast<unsigned char>(c)); }))
      return true;
    left -= block.size();
    const int position = length - static_cast<int>(left);  // of the next byte, counted from 1
    if (showProgress) ShowLoadingUpTo(position, position - static_cast<int>(block.size()), step, length);
  }
}

// The next line that is no blank one.
bool NextEntry(LineReader& file, std::string_view& line) {
  while (file.Next(line))
    if (!IsBlankLine(line)) return true;
  return false;
}

// Of the first entry that has one.
Date FirstDate(const std::string& path) {
  LineReader file(path);
  Date first = 0;
  for (std::string_view line; first < 1 && NextEntry(file, line);) first = GetLineDate(line);
  file.Close();
  return first;
}

// Of the last entry, which is looked for in the file's end, and in ever more of it until it is found.
Date LastDate(const std::string& path) {
  const std::int64_t length = FileLength(path);
  for (std::int64_t end = BlockSize;; end *= 8) {
    const std::int64_t from = std::max<std::int64_t>(length - end, 0);
    LineReader file(path, from);
    std::string_view line;
    if (from > 0) file.Next(line);  // from within it on
    std::string last;
    while (NextEntry(file, line)) last = line.substr(0, DateLength);
    file.Close();
    if (!last.empty() || from == 0) return GetLineDate(last);
  }
}

float CountEntries(const std::string& path) {
  LineReader file(path);
  std::int64_t entries = 0;
  for (std::string_view line; NextEntry(file, line);) ++entries;
  file.Close();
  // A float counter that is stepped by one stops at 2^24.
  return static_cast<float>(std::min<std::int64_t>(entries, 16777216));
}

void ReadEntries(const LogFile& logFile, EntryCount count, LogFindings& findings) {
  const std::string& path = logFile.CurrentLogPath;
  const Date first = FirstDate(path), last = LastDate(path);
  findings.LogEntries = count == EntryCount::Wanted ? CountEntries(path) : 0;
  findings.FirstEntryDate = first;
  findings.LastEntryDate = last;
  findings.TimesForDates = TimeInPlaceOfDate(path).has_value();
}

// Looks at every byte of the log but its last. True at the first byte below 32 other than tab, line feed and
// carriage return, and at the first byte of 127 or above. A file of 3276750 bytes or more raises 6 (overflow)
// to the error handler.
bool CheckCorruption(const LogFile& logFile, LogFindings& findings, bool showProgress) {
  SetTrace("QELMain", "CheckCorruption");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  Attempt([&] { findings.LogLength = LengthOf(logFile); });
  if (findings.LogLength < 1) {
    findings.LogEmpty = true;
    CurrentHost().SetMousePointer(MousePointer::Default);
    return false;
  }
  Int16 step;
  Attempt([&] { step = Int16(findings.LogLength / 100.0); });
  CloseAllFiles();
  bool corrupt = false;
  Attempt([&] { corrupt = HoldsBadByte(logFile, findings.LogLength, showProgress, step); });
  if (corrupt) return true;  // the pointer stays for the window that tells of it
  if (showProgress) {
    CurrentDisplay().SplashText("Please Wait .....Loading 100%");
    CurrentHost().Yield();
  }
  CurrentHost().SetMousePointer(MousePointer::Default);
  return false;
}

void GetLogStats(const LogFile& logFile, Int32 maxSize, EntryCount count, LogFindings& findings) {
  SetTrace("QELMain", "GetLogStats");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  CurrentHost().Yield();
  findings.LogEmpty = false;
  Attempt([&] { findings.LogLength = LengthOf(logFile); });
  if (findings.LogLength < 1) {
    findings.LogEmpty = true;
    CurrentHost().SetMousePointer(MousePointer::Default);
    return;
  }
  Attempt([&] { findings.LogTooBig = findings.LogLength >= maxSize * 1024; });
  Attempt([&] { ReadEntries(logFile, count, findings); });
  findings.LogInvalid = findings.FirstEntryDate == 0 || findings.LastEntryDate == 0 || findings.TimesForDates;
  CurrentHost().SetMousePointer(MousePointer::Default);
}

}  // namespace

std::string LengthText(std::int64_t bytes) {
  const auto rounded = [bytes](double unit) {
    return static_cast<std::int64_t>(RoundHalfEven(static_cast<double>(bytes) / unit));
  };
  constexpr std::int64_t mostKilobytes = 32767;
  const bool fits = rounded(1024) <= mostKilobytes;
  return std::to_string(bytes) + " Bytes (" + std::to_string(fits ? rounded(1024) : rounded(1024 * 1024)) +
         (fits ? "KB)" : "MB)");
}

std::optional<std::string> TimeInPlaceOfDate(const std::string& logPath) {
  constexpr int enough = 10;
  std::optional<std::string> first;
  LineReader log(logPath);
  int entries = 0;
  for (std::string_view line; entries < enough && NextEntry(log, line);) {
    if (!BeginsWithTime(line)) return std::nullopt;
    if (++entries == 1) first = line;
  }
  return first;
}

void Examine(const LogFile& logFile, Int32 maxSize, LogHealth health, EntryCount count,
             LogFindings& findings) {
  findings.LogExists = findings.LogCorrupt = findings.LogEmpty = findings.TimesForDates = false;
  findings.LogLength = 0;
  findings.LogEntries = 0;
  findings.FirstEntryDate = findings.LastEntryDate = 0;
  Attempt([&] { findings.LogExists = FileExists(logFile.CurrentLogPath); });
  if (!findings.LogExists) {
    findings.LogTooBig = findings.LogInvalid = false;
    findings.LogEmpty = true;
    return;
  }
  const bool told = health == LogHealth::UnknownTold;
  const bool tested = told || health == LogHealth::Unknown;
  findings.LogCorrupt = tested ? CheckCorruption(logFile, findings, told) : health == LogHealth::Corrupt;
  if (!findings.LogCorrupt) GetLogStats(logFile, maxSize, count, findings);
}

}  // namespace qel
