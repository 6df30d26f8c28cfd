#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "platform/Clock.h"
#include "platform/TextToDate.h"
#include "ui/DateField.h"
#include "ui/SetupTabs.h"
#include "values/Region.h"

namespace qel {

SetupReport::SetupReport(const SetupTab& tab) : SetupTab(tab) {
  lstStartDate.AddItems(
      {"First Log Entry", "Last Log Entry", "Start of Week", "Start of Month", "User Defined"});
  lstMonthStart.AddItem("First Day");
  for (ListBox* list : {&lstWeekStart, &lstMonthStart})
    list->AddItems({Region.LongDays.begin(), Region.LongDays.end()});
  for (OptionButton& format : optFormat)
    format.Click = [this, &format] { edited.UserReportPref = Int16(format.Index()); };
  chkAMPM.Click = [this] { edited.ForceAMPM = chkAMPM.Value; };
  lstStartDate.Click = [this] {
    edited.UserStartPref = lstStartDate.Text();
    EnableStartFields();
  };
  lstWeekStart.Click = [this] { edited.UserStartOfWeek = Int16(lstWeekStart.ListIndex()); };
  lstMonthStart.Click = [this] { edited.UserStartOfMonth = Int16(lstMonthStart.ListIndex()); };
  mskUserDate.Change = [this] { mskUserDate.Refusal = ""; };
  mskUserDate.LostFocus = [this] { mskUserDate_LostFocus(); };
}

void SetupReport::Show() {
  SetTrace("frmSetup", "ShowReportSettings");
  chkAMPM.Value = edited.ForceAMPM;
  if (edited.UserStartPref.empty()) edited.UserStartPref = "Last Log Entry";
  Attempt([this] { lstStartDate.SetText(edited.UserStartPref); });
  Attempt([this] { lstWeekStart.SetListIndex(edited.UserStartOfWeek); });
  Attempt([this] { lstMonthStart.SetListIndex(edited.UserStartOfMonth); });
  const LogFindings& findings = windows.session.findings;
  if (edited.UserStartDate == 0)
    edited.UserStartDate = findings.FirstEntryDate != 0 ? findings.FirstEntryDate : Today();
  MakeDateField(mskUserDate);
  Attempt([this] { mskUserDate.Text = format_date(edited.UserStartDate); });
  for (OptionButton& format : optFormat)
    if (format.Index() == edited.UserReportPref) format.Value = true;
}

// Only what the chosen preference needs can be set.
void SetupReport::EnableStartFields() {
  for (const StartField& start : startFields) {
    const bool needed = lstStartDate.Text() == start.Preference;
    EnableField(start.Field, needed);
    start.Caption.Enabled = needed;
    GreyText(start.Caption, !needed);
  }
}

void SetupReport::mskUserDate_LostFocus() {
  if (!IsDate(mskUserDate.Text())) return RefuseAndStay(mskUserDate, "Enter a date.");
  edited.UserStartDate = WholeDay(TextToDate(mskUserDate.Text()));
}

}  // namespace qel
