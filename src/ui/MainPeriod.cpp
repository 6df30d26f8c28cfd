// The main window's dates. The rules that tie them together are the period's own; here they meet the fields,
// the calendar, the spinners and the date menu.
#include <initializer_list>
#include <utility>

#include "analysis/Analyse.h"
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "platform/Clock.h"
#include "platform/TextToDate.h"
#include "ui/frmMain.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

// What has no date, as an empty log, stands today.
Date OrToday(Date date) { return date != 0 ? date : Today(); }

// Where the user wants periods to begin; `fallback` for a preference that names no day.
Date PreferredStart(const Settings& settings, const LogFindings& findings, Date fallback) {
  const Date today = Today();
  const CalendarDay parts = DayOf(today);
  if (settings.UserStartPref == "First Log Entry") return OrToday(findings.FirstEntryDate);
  if (settings.UserStartPref == "Last Log Entry") return OrToday(findings.LastEntryDate);
  if (settings.UserStartPref == "User Defined") return settings.UserStartDate;
  if (settings.UserStartPref == "Start of Week") {
    const int wanted = int{settings.UserStartOfWeek} + 1;  // 1 is Monday
    return today - ((Weekday(today) - wanted) % 7 + 7) % 7;
  }
  if (settings.UserStartPref == "Start of Month" && settings.UserStartOfMonth >= 0 &&
      settings.UserStartOfMonth <= 7) {
    const Date first = DateSerial(parts.year, parts.month, 1);
    return settings.UserStartOfMonth == 0 ? first
                                          : first + (int{settings.UserStartOfMonth} - Weekday(first) + 7) % 7;
  }
  return fallback;
}

}  // namespace

void frmMain::WirePeriod() {
  for (const PeriodField field : {PeriodField::Starting, PeriodField::Ending}) {
    const bool starting = field == PeriodField::Starting;
    MaskedEdit& input = InputOf(field);
    Label& label = starting ? LabelStarting : LabelEnding;
    UpDown& spinner = starting ? UpDown1 : UpDown2;
    input.Change = [this, field] { DateField_Change(field); };
    input.GotFocus = [this, field] { DateField_GotFocus(field); };
    input.LostFocus = [this, field] { DateField_LostFocus(field); };
    input.KeyDown = [this, field](KeyPress& press) {
      if (press.key != Key::Up && press.key != Key::Down) return;
      StepDay(field, press.key == Key::Up ? 1 : -1);
      press.Handled = true;
    };
    label.Click = [&input] { input.SetFocus(); };
    label.DblClick = [this, field] { SetField(field, Today()); };
    spinner.UpClick = [this, field] { StepDay(field, 1); };
    spinner.DownClick = [this, field] { StepDay(field, -1); };
  }
  Calendar1.GotFocus = [this] { SetStatus(6); };
  Calendar1.AfterUpdate = [this] { CalTitle(); };
  Calendar1.Click = [this] { Calendar1_Click(); };
  // Each is a way out of an unfinished date.
  for (Control* control : std::initializer_list<Control*>{&Calendar1, &btnExit, &btnViewLog})
    control->ClickMovesFocus = false;
  const auto step = [this](void (Calendar::*move)()) {
    return [this, move] {
      Attempt([&] { (Calendar1.*move)(); });
      Calendar1_Click();
    };
  };
  UpDown3.UpClick = step(&Calendar::NextWeek);
  UpDown3.DownClick = step(&Calendar::PreviousWeek);
  UpDown4.UpClick = step(&Calendar::NextMonth);
  UpDown4.DownClick = step(&Calendar::PreviousMonth);
  mnuToday.Click = [this] { SetActiveField(Today()); };
  const auto stepMonth = [this](void (Calendar::*move)()) {
    return [this, move] {
      Attempt([&] { (Calendar1.*move)(); });
      SetActiveField(Calendar1.Value);
    };
  };
  mnuPlusMonth.Click = stepMonth(&Calendar::NextMonth);
  mnuMinusMonth.Click = stepMonth(&Calendar::PreviousMonth);
  mnuLogStart.Click = [this] { SetActiveField(OrToday(findings.FirstEntryDate)); };
  mnuLogEnd.Click = [this] { SetActiveField(OrToday(findings.LastEntryDate)); };
}

void frmMain::ShowText(PeriodField field, const std::string& text) { InputOf(field).Text = text; }

// Each change may lead to another one; the user hears of what they come to.
void frmMain::DateField_Change(PeriodField field) {
  const bool follows = std::exchange(datesChange, true);
  if (!follows) complained = false;
  const std::string text = InputOf(field).Text;
  SetTrace("frmMain", field == PeriodField::Starting ? "inputStarting_Change" : "inputEnding_Change");
  field == PeriodField::Starting ? SetStarting(text) : SetEnding(text);
  checkProcess();
  CalTitle();
  if (follows) return;
  datesChange = false;
  if (!complained && StartingChanged && EndingChanged) ForgetComplaint();
}

void frmMain::Complain() {
  complained = true;
  CurrentHost().Beep();
  ShowStatus();
}

// Of a date that has been put right meanwhile.
void frmMain::ForgetComplaint() {
  const auto isOfDates = [](const Int16& status) { return status >= 9 && status <= 13; };
  if (isOfDates(StatusIndex)) StatusIndex = CurrentDateField == PeriodField::Starting ? 1 : 2;
  if (FormLoading || !isOfDates(shownStatus)) return;
  StatusHold = false;
  ShowStatus();
}

void frmMain::setLogExtents() {
  const bool known = findings.LogExists && !findings.LogInvalid && !findings.LogCorrupt &&
                     !findings.LogEmpty && !logFile.ArchiveOpen;
  Calendar1.Value = known ? PreferredStart(settings, findings, Calendar1.Value) : Today();
  period.PeriodStart = Calendar1.Value;
  period.PeriodEnd = findings.LastEntryDate;
  SetField(PeriodField::Starting, period.PeriodStart);
  SetField(PeriodField::Ending, period.PeriodEnd);
}

void frmMain::checkProcess() {
  SetTrace("frmMain", "checkProcess");
  const bool usable = inputStarting.Enabled;  // the log can be reported on
  btnProcess.Enabled = PeriodIsSet() && usable;
  Attempt([this] {
    if (!PeriodFields::checkProcess()) return;
    btnProcess.Caption =
        "QELMARK - Report for" + Str(period.PeriodDays) + (period.PeriodDays < 2 ? " day" : " days");
  });
}

void frmMain::CalTitle() {
  Attempt([this] { lblDateTitle.Caption = FormatDate(Calendar1.Value, "Long Date"); });
}

void frmMain::DateField_GotFocus(PeriodField field) {
  const bool starting = field == PeriodField::Starting;
  CurrentDateField = field;
  SetStatus(starting ? 1 : 2);
  imgStartArrow.Visible = starting;
  imgEndArrow.Visible = !starting;
  const std::string text = InputOf(field).Text;
  if (IsDate(text)) Calendar1.Value = WholeDay(TextToDate(text));
  CalTitle();
}

void frmMain::DateField_LostFocus(PeriodField field) {
  const bool isDate = field == PeriodField::Starting ? StartingChanged : EndingChanged;
  if (isDate || FormLoading) return;
  CurrentHost().Beep();
  SetStatus(9);
  InputOf(field).SetFocus();
}

void frmMain::Calendar1_Click() {
  SetTrace("frmMain", "Calendar1_Click");
  SetActiveField(Calendar1.Value);
  InputOf(CurrentDateField).SetFocus();
}

// The field of a spinner is the active one from then on; entering it brings the calendar to its date.
void frmMain::StepDay(PeriodField field, int days) {
  SetTrace("frmMain", "StepDay");
  InputOf(field).SetFocus();
  if (CurrentDateField != field) return;  // the other field holds the focus
  Calendar1.Value = Calendar1.Value + days;
  SetField(field, Calendar1.Value);
}

void frmMain::SetField(PeriodField field, Date day) {
  Attempt([&] { InputOf(field).Text = format_date(day); });
}

Date frmMain::ActiveDate() const {
  return CurrentDateField == PeriodField::Starting ? period.PeriodStart : period.PeriodEnd;
}

MaskedEdit& frmMain::InputOf(PeriodField field) {
  return field == PeriodField::Starting ? inputStarting : inputEnding;
}

void frmMain::mnuDefaultDate_Click() {
  SetTrace("frmMain", "mnuDefaultDate_Click");
  const Answer answer = MsgBox({"Are you sure you want to set the default report\nstart date to " +
                                    FormatDate(period.PeriodStart, "Short Date") + "?",
                                "Default Report Start Date", Icon::Question, Buttons::OKCancel});
  if (answer != Answer::OK) return;
  settings.UserStartPref = "User Defined";
  settings.UserStartDate = period.PeriodStart;
  session.StoreSettings();
}

void frmMain::btnProcess_Click() {
  SetTrace("frmMain", "btnProcess_Click");
  btnProcess.Enabled = false;
  ForgetUndatedLine(findings, analysis);
  TellCorrupt();
  const bool knownCorrupt = findings.LogCorrupt;
  session.ProcessLog();
  // An entry without a date ends the analysis without a report; that must not pass in silence.
  if (findings.LogCorrupt && !knownCorrupt) {
    TellCorrupt();
    SetStatus(8);
  }
  btnProcess.Enabled = true;
}

}  // namespace qel
