#include "cli/PeriodSelection.h"

#include <algorithm>

#include "analysis/PeriodFields.h"
#include "cli/CommandLineHost.h"
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

void TellDateOutsideLog(const LogFindings& findings, const char* option, const std::optional<Date>& date) {
  const auto [first, last] = std::minmax(findings.FirstEntryDate, findings.LastEntryDate);
  if (!date || (first <= *date && *date <= last)) return;
  Complain(std::string(option) + " " + IsoDate(*date) + " lies outside the log, which holds " +
           IsoDate(first) + " to " + IsoDate(last));
}

// Fills the two date fields as a user of the window would, who has their rules too. What is not granted is
// said on standard error. Answers whether both are dates.
bool TypePeriod(Session& session, const Arguments& arguments) {
  const LogFindings& findings = session.findings;
  const Date from = arguments.from.value_or(findings.FirstEntryDate),
             to = arguments.to.value_or(findings.LastEntryDate);
  PeriodFields fields(session.period, session.logFile, findings);
  fields.SetStarting(format_date(findings.FirstEntryDate));
  fields.SetEnding(format_date(findings.LastEntryDate));
  if (arguments.from) fields.SetStarting(format_date(from));
  if (arguments.to) fields.SetEnding(format_date(to));
  TellDateOutsideLog(findings, "--from", arguments.from);
  TellDateOutsideLog(findings, "--to", arguments.to);
  const Period& period = session.period;
  if (period.PeriodStart != from || period.PeriodEnd != to)
    Complain("the report is of " + IsoDate(period.PeriodStart) + " to " + IsoDate(period.PeriodEnd));
  return fields.checkProcess();
}

}  // namespace

bool ChoosePeriod(Session& session, const Arguments& arguments) {
  SetTrace("ReportRun", "ChoosePeriod");
  bool usable = false;
  Attempt([&] { usable = TypePeriod(session, arguments); });
  if (!usable) Complain("the short date format of the settings writes no dates that can be read back");
  return usable;
}

}  // namespace qel
