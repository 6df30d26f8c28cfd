#include "cli/SettingsCheckRun.h"

#include <algorithm>

#include "analysis/MarkersCheck.h"
#include "cli/LogSelection.h"
#include "cli/ReportOutput.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "reports/ReportExport.h"
#include "values/CodePage.h"

namespace qel {

namespace {

std::string FindingsText(const std::vector<Finding>& findings) {
  if (findings.empty()) return "Nothing found.\n";
  std::string text;
  for (const auto& finding : findings)
    text += std::string(NameOf(finding.Kind)) + ": " + ToCleanUtf8(finding.Text) + "\n";
  return text;
}

std::string DaysAsJson(DaySet days) {
  std::string text;
  for (int day = 0; day < DayCount; ++day)
    if (days >> day & 1) text += (text.empty() ? "" : ", ") + JsonText(DayName(day));
  return "[" + text + "]";
}

std::string FindingAsJson(const Finding& finding) {
  const auto clock = [&](int MinuteSpan::*end) {
    return finding.Minutes ? JsonText(ClockText((*finding.Minutes).*end)) : "null";
  };
  return "{\"service\": " + (finding.Service.empty() ? "null" : JsonText(ToCleanUtf8(finding.Service))) +
         ", \"kind\": " + JsonText(NameOf(finding.Kind)) + ", \"days\": " + DaysAsJson(finding.Days) +
         ", \"from\": " + clock(&MinuteSpan::From) + ", \"to\": " + clock(&MinuteSpan::To) +
         ", \"text\": " + JsonText(ToCleanUtf8(finding.Text)) + "}";
}

std::string FindingsAsJson(const std::vector<Finding>& findings) {
  std::string text;
  for (const auto& finding : findings) text += (text.empty() ? "\n    " : ",\n    ") + FindingAsJson(finding);
  return "{\n  \"findings\": [" + text + (text.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

// The texts of the log beside the log, where there is one: a default log that is missing is no fault. False
// where it cannot be read, which is said.
bool AddMarkers(Session& session, const std::optional<std::string>& named, std::vector<Finding>& findings) {
  const LogFile& logFile = session.logFile;
  if (!named && !PathExists(logFile.CurrentLogPath)) return true;
  if (!CanBeRead(logFile)) return false;
  std::ranges::move(CheckMarkers(session.settings, logFile.CurrentLogPath), std::back_inserter(findings));
  return true;
}

}  // namespace

ExitStatus RunSettingsCheck(Session& session, const Arguments& arguments) {
  NameLog(session, arguments.log);
  if (arguments.output && !MayWriteTo(session.logFile, arguments)) return NoReport;
  auto findings = CheckSettings(session.settings, Today());
  const bool logRead = AddMarkers(session, arguments.log, findings);
  const std::string text =
      arguments.format == OutputFormat::Json ? FindingsAsJson(findings) : FindingsText(findings);
  if (!WriteOut(text, arguments.output)) return NoReport;
  return findings.empty() && logRead ? NothingFound : SomethingFound;
}

}  // namespace qel
