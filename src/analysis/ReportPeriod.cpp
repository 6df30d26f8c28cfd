#include "analysis/ReportPeriod.h"

#include "core/ShownDates.h"
#include "modemlog/LogExamination.h"
#include "platform/DateConversion.h"

namespace qel {

Period period;
bool StartingChanged{}, EndingChanged{};

const std::array<StatusMessage, 16> StatusMessages = {{
    {"", false, false},
    {"Enter the starting date for the report by clicking on the calendar or typing.", false, false},
    {"Enter the ending date for the report by clicking on the calendar or typing.", false, false},
    {"Exit Qelmark.", false, false},
    {"Process your report.", false, false},
    {"View the Modem Log File.", false, false},
    {"Click on the calendar to enter a date without typing.", false, false},
    {"No Modem Log Found!", true, true},
    {"Corruption Detected in Modem Log File!", true, true},
    {"Invalid date entry!", true, true},
    {"The start date cannot be less than the first entry in modem log!", true, true},
    {"The end date cannot be less than the start date!", true, true},
    {"The end date cannot be greater than the last entry in modem log!", true, true},
    {"The start date cannot be greater than the end date!", true, true},
    {"", false, false},
    {"", false, false},
}};

namespace {

// A log whose last entry lies before its first (a clock was set back) has no limits that both dates could
// keep.
bool LimitsKnown() {
  return (findings.LogExists || logFile.ArchiveOpen) && !findings.LogInvalid && !findings.LogCorrupt &&
         findings.FirstEntryDate <= findings.LastEntryDate;
}

}  // namespace

void PeriodFields::SetStarting(const std::string& text) {
  if (text == starting) return;
  starting = text;
  inputStarting_Change();
  ShowText(DateField::Starting, starting);  // by now it may be another one
}

void PeriodFields::SetEnding(const std::string& text) {
  if (text == ending) return;
  ending = text;
  inputEnding_Change();
  ShowText(DateField::Ending, ending);
}

void PeriodFields::inputStarting_Change() {
  StartingChanged = IsDate(starting);
  if (!StartingChanged) return;
  period.PeriodStart = WholeDay(TextToDate(starting));
  if (period.PeriodStart < findings.FirstEntryDate && LimitsKnown()) {
    period.PeriodStart = findings.FirstEntryDate;
    SetStarting(format_date(findings.FirstEntryDate));
    StatusIndex = CurrentDateField == DateField::Starting ? 10 : 11;
    if (!FormLoading) Complain();
  }
  ShowOnCalendar(period.PeriodStart);
  if (period.PeriodEnd < period.PeriodStart) SetEnding(starting);
}

void PeriodFields::inputEnding_Change() {
  EndingChanged = IsDate(ending);
  if (!EndingChanged) return;
  period.PeriodEnd = WholeDay(TextToDate(ending));
  if (period.PeriodEnd > findings.LastEntryDate && LimitsKnown() && !findings.LogEmpty) {
    period.PeriodEnd = findings.LastEntryDate;
    SetEnding(format_date(findings.LastEntryDate));
    StatusIndex = CurrentDateField == DateField::Ending ? 12 : 13;
    if (!FormLoading) Complain();
  }
  ShowOnCalendar(period.PeriodEnd);
  if (period.PeriodEnd < period.PeriodStart) SetStarting(ending);
}

bool PeriodIsSet() { return StartingChanged && EndingChanged && (findings.LogExists || logFile.ArchiveOpen); }

bool checkProcess() {
  if (!PeriodIsSet()) return false;
  period.PeriodDays = Int16(DaysBetween(period.PeriodStart, period.PeriodEnd)) + 1;
  return true;
}

}  // namespace qel
