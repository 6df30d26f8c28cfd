// The options window's preferences for reports: their format, and the day on which they begin.
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "modemlog/LogExamination.h"
#include "platform/Clock.h"
#include "platform/DateConversion.h"
#include "ui/DateField.h"
#include "ui/frmSetup.h"
#include "values/Region.h"

namespace qel {

void frmSetup::WireReport() {
  lstStartDate.AddItems(
      {"First Log Entry", "Last Log Entry", "Start of Week", "Start of Month", "User Defined"});
  lstMonthStart.AddItem("First Day");
  for (ListBox* list : {&lstWeekStart, &lstMonthStart})
    list->AddItems({Region.LongDays.begin(), Region.LongDays.end()});
  for (OptionButton& format : optFormat)
    format.Click = [this, &format] { settings.UserReportPref = Int16(format.Index()); };
  chkAMPM.Click = [this] { settings.ForceAMPM = chkAMPM.Value; };
  lstStartDate.Click = [this] {
    settings.UserStartPref = lstStartDate.Text();
    EnableStartFields();
  };
  lstWeekStart.Click = [this] { settings.UserStartOfWeek = Int16(lstWeekStart.ListIndex()); };
  lstMonthStart.Click = [this] { settings.UserStartOfMonth = Int16(lstMonthStart.ListIndex()); };
  mskUserDate.Change = [this] { mskUserDate.Refusal = ""; };
  mskUserDate.LostFocus = [this] { mskUserDate_LostFocus(); };
}

void frmSetup::ShowReportSettings() {
  SetTrace("frmSetup", "ShowReportSettings");
  chkAMPM.Value = settings.ForceAMPM;
  if (settings.UserStartPref.empty()) settings.UserStartPref = "Last Log Entry";
  Attempt([this] { lstStartDate.SetText(settings.UserStartPref); });
  Attempt([this] { lstWeekStart.SetListIndex(settings.UserStartOfWeek); });
  Attempt([this] { lstMonthStart.SetListIndex(settings.UserStartOfMonth); });
  if (settings.UserStartDate == 0)
    settings.UserStartDate = findings.FirstEntryDate != 0 ? findings.FirstEntryDate : Today();
  MakeDateField(mskUserDate);
  Attempt([this] { mskUserDate.Text = format_date(settings.UserStartDate); });
  for (OptionButton& format : optFormat)
    if (format.Index() == settings.UserReportPref) format.Value = true;
}

// Only what the chosen preference needs can be set.
void frmSetup::EnableStartFields() {
  for (const StartField& start : startFields) {
    const bool needed = lstStartDate.Text() == start.Preference;
    EnableField(start.Field, needed);
    start.Caption.Enabled = needed;
    start.Caption.ForeColor = needed ? SystemColour::WindowText : SystemColour::GreyText;
  }
}

void frmSetup::mskUserDate_LostFocus() {
  if (!IsDate(mskUserDate.Text())) return RefuseAndStay(mskUserDate, "Enter a date.");
  settings.UserStartDate = WholeDay(TextToDate(mskUserDate.Text()));
}

}  // namespace qel
