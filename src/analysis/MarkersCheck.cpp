#include "analysis/MarkersCheck.h"

#include <algorithm>

#include "modemlog/LineClassifier.h"
#include "modemlog/LogExamination.h"
#include "platform/Files.h"
#include "values/CodePage.h"

namespace qel {

namespace {

struct MarkerRow {
  std::string Settings::*marker;
  LineClass lineClass;
  const char* name;
  const char* effect;                 // of a text that is not found
  std::vector<const char*> wordings;  // what drivers write, the likeliest first
};

const std::vector<MarkerRow>& Markers() {
  static const std::vector<MarkerRow> rows = {
      {&Settings::ModemDial,
       DialLine,
       "dial",
       "connections have no number and are charged as calls to an unknown one",
       {"RECV: ATD", "SEND: ATD", "ATDT", "ATDP"}},
      {&Settings::ModemAnswer,
       AnswerLine,
       "answer",
       "calls that come in are charged as calls to an unknown number",
       {"ANSWERING", "RECV: ATA<", "SEND: ATA<"}},
      {&Settings::ModemConnect,
       ConnectLine,
       "connect",
       "no connection is found",
       {"CONNECTION ESTABLISHED", "INTERPRETED RESPONSE: CONNECT"}},
      {&Settings::ModemUserDisconnect,
       UserDisconnectLine,
       "user disconnect",
       "calls that are ended here have no end and are charged by an estimate",
       {"HANGING UP THE MODEM", "HANGING UP"}},
      {&Settings::ModemHostDisconnect,
       HostDisconnectLine,
       "remote disconnect",
       "calls that are ended there have no end and are charged by an estimate",
       {"REMOTE MODEM HUNG UP", "HUNG UP"}},
      {&Settings::ModemReads,
       ReadsLine,
       "reads",
       "no data that was read is counted or charged",
       {"READS", "READ: TOTAL", "BYTES READ", "BYTES RECEIVED"}},
      {&Settings::ModemWrites,
       WritesLine,
       "writes",
       "no data that was sent is counted",
       {"WRITES", "WRITTEN: TOTAL", "BYTES WRITTEN", "BYTES SENT"}},
  };
  return rows;
}

// A line of a log to show to people: its beginning, without what a terminal could take for a command.
std::string Shown(const std::string& line) {
  constexpr std::size_t most = 120;
  std::string text = line.size() > most ? line.substr(0, most) + "..." : line;
  std::ranges::replace_if(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }, '?');
  return text;
}

// What may be meant by a text that is not found: itself in capitals, since small letters never are, and what
// drivers write.
struct Candidates {
  const MarkerRow& row;
  std::vector<std::string> texts;
  std::vector<std::string> lines;  // the first with each, or empty

  Candidates(const MarkerRow& row, const Settings& settings)
      : row(row), texts{UpperCase(settings.*row.marker)} {
    texts.insert(texts.end(), row.wordings.begin(), row.wordings.end());
    lines.resize(texts.size());
  }

  void LookAt(std::string_view line, const std::string& capitals) {
    for (std::size_t i = 0; i < texts.size(); ++i)
      if (lines[i].empty() && capitals.find(texts[i]) != std::string::npos) lines[i] = line;
  }

  void Tell(std::vector<MissingMarker>& missing) const {
    const auto found = std::ranges::find_if(lines, [](const auto& line) { return !line.empty(); });
    if (found == lines.end()) return;
    missing.push_back(
        {row.marker, row.name, texts[static_cast<std::size_t>(found - lines.begin())], Shown(*found)});
  }
};

// The classes of which the log has a line. Nothing is left to look for where all are found.
unsigned ClassesIn(const std::string& path, const Settings& settings) {
  const LineClassifier classifier(ResponsesOf(settings));
  constexpr unsigned all = 2 * WritesLine - 1;
  LineReader log(path);
  unsigned found = NoClass;
  for (std::string_view line; found != all && log.Next(line);) found |= classifier.ClassesOf(line);
  return found;
}

}  // namespace

std::vector<MissingMarker> MissingMarkers(const Settings& settings, const std::string& logPath) {
  const unsigned found = ClassesIn(logPath, settings);
  std::vector<MissingMarker> told;
  std::vector<Candidates> missing;
  for (const auto& row : Markers())
    if (!(found & row.lineClass)) missing.emplace_back(row, settings);
  if (missing.empty()) return told;
  LineReader log(logPath);
  for (std::string_view line; log.Next(line);) {
    const std::string capitals = UpperCase(line);
    for (auto& candidates : missing) candidates.LookAt(line, capitals);
  }
  for (const auto& candidates : missing) candidates.Tell(told);
  return told;
}

std::vector<Finding> CheckMarkers(const Settings& settings, const std::string& logPath) {
  std::vector<Finding> findings;
  const auto add = [&](const std::string& text) {
    findings.push_back({FindingKind::Markers, "", 0, std::nullopt, text});
  };
  if (const auto entry = TimeInPlaceOfDate(logPath))
    add("The lines of the log begin with the time where the date should stand, as in '" + Shown(*entry) +
        "': no call has a day, and no report of the log is right.");
  for (const auto& missing : MissingMarkers(settings, logPath)) {
    const auto row = std::ranges::find(Markers(), missing.Marker, &MarkerRow::marker);
    add("No line of the log holds the " + missing.Name + " text '" + settings.*missing.Marker + "', so " +
        row->effect + ". '" + missing.Instead + "' would find lines like '" + missing.Line + "'.");
  }
  return findings;
}

}  // namespace qel
