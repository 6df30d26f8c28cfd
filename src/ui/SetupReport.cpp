// The options window's preferences for reports: their format, and the day on which they begin.
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "modemlog/LogStatistics.h"
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
  for (OptionButton& format : optFormat) format.Click = [&format] { UserReportPref = Int16(format.Index()); };
  chkAMPM.Click = [this] { ForceAMPM = chkAMPM.Value; };
  lstStartDate.Click = [this] {
    UserStartPref = lstStartDate.Text();
    EnableStartFields();
  };
  lstWeekStart.Click = [this] { UserStartOfWeek = Int16(lstWeekStart.ListIndex()); };
  lstMonthStart.Click = [this] { UserStartOfMonth = Int16(lstMonthStart.ListIndex()); };
  mskUserDate.Change = [this] { mskUserDate.Refusal = ""; };
  mskUserDate.LostFocus = [this] { mskUserDate_LostFocus(); };
}

void frmSetup::ShowReportSettings() {
  SetTrace("frmSetup", "ShowReportSettings");
  chkAMPM.Value = ForceAMPM;
  if (UserStartPref.empty()) UserStartPref = "Last Log Entry";
  Attempt([this] { lstStartDate.SetText(UserStartPref); });
  Attempt([this] { lstWeekStart.SetListIndex(UserStartOfWeek); });
  Attempt([this] { lstMonthStart.SetListIndex(UserStartOfMonth); });
  if (UserStartDate == 0) UserStartDate = FirstEntryDate != 0 ? FirstEntryDate : Today();
  MakeDateField(mskUserDate);
  Attempt([this] { mskUserDate.Text = format_date(UserStartDate); });
  for (OptionButton& format : optFormat)
    if (format.Index() == UserReportPref) format.Value = true;
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
  UserStartDate = WholeDay(TextToDate(mskUserDate.Text()));
}

}  // namespace qel
