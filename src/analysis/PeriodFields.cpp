#include "analysis/PeriodFields.h"

#include "core/ShownDates.h"
#include "platform/TextToDate.h"

namespace qel {

// A log whose last entry lies before its first (a clock was set back) has no limits that both dates could
// keep.
bool PeriodFields::LimitsKnown() const {
  return (found.LogExists || log.ArchiveOpen) && !found.LogInvalid && !found.LogCorrupt &&
         found.FirstEntryDate <= found.LastEntryDate;
}

void PeriodFields::SetStarting(const std::string& text) {
  if (text == starting) return;
  starting = text;
  inputStarting_Change();
  ShowText(PeriodField::Starting, starting);  // by now it may be another one
}

void PeriodFields::SetEnding(const std::string& text) {
  if (text == ending) return;
  ending = text;
  inputEnding_Change();
  ShowText(PeriodField::Ending, ending);
}

void PeriodFields::inputStarting_Change() {
  StartingChanged = IsDate(starting);
  if (!StartingChanged) return;
  typed.PeriodStart = WholeDay(TextToDate(starting));
  if (typed.PeriodStart < found.FirstEntryDate && LimitsKnown()) {
    typed.PeriodStart = found.FirstEntryDate;
    SetStarting(format_date(found.FirstEntryDate));
    StatusIndex = CurrentDateField == PeriodField::Starting ? 10 : 11;
    if (!FormLoading) Complain();
  }
  ShowOnCalendar(typed.PeriodStart);
  if (typed.PeriodEnd < typed.PeriodStart) SetEnding(starting);
}

void PeriodFields::inputEnding_Change() {
  EndingChanged = IsDate(ending);
  if (!EndingChanged) return;
  typed.PeriodEnd = WholeDay(TextToDate(ending));
  if (typed.PeriodEnd > found.LastEntryDate && LimitsKnown() && !found.LogEmpty) {
    typed.PeriodEnd = found.LastEntryDate;
    SetEnding(format_date(found.LastEntryDate));
    StatusIndex = CurrentDateField == PeriodField::Ending ? 12 : 13;
    if (!FormLoading) Complain();
  }
  ShowOnCalendar(typed.PeriodEnd);
  if (typed.PeriodEnd < typed.PeriodStart) SetStarting(ending);
}

bool PeriodFields::PeriodIsSet() const {
  return StartingChanged && EndingChanged && (found.LogExists || log.ArchiveOpen);
}

bool PeriodFields::checkProcess() {
  if (!PeriodIsSet()) return false;
  typed.PeriodDays = Int16(DaysBetween(typed.PeriodStart, typed.PeriodEnd)) + 1;
  return true;
}

}  // namespace qel
