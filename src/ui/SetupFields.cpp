// The options window's tabs of plain fields: General, Modem, Costs, Errors.
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "core/Version.h"
#include "platform/Files.h"
#include "settings/UserParameters.h"
#include "ui/frmSetup.h"
#include "values/CodePage.h"
#include "values/FormatMask.h"
#include "values/NumberConversion.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr char LogFilter[] = "Modem Log Files (*.txt;*.log)|*.txt;*.log";
constexpr char AskForNumber[] = "Enter a number.";
constexpr char OutOfRange[] = "This number is out of range.";

// A text in the making is not held against its field any longer.
void ForgetRefusalOnChange(TextBox& field) {
  field.Change = [&field] { field.Refusal = ""; };
}

// Empty where the file is there. A folder that may not be entered is a reason like any other.
std::string WhyNoLog(const std::string& path) {
  try {
    return FileExists(path) ? "" : "There is no file \"" + PathText(path) + "\".";
  } catch (const RunTimeError& error) {
    return "\"" + PathText(path) + "\" cannot be reached: " + FromUtf8Lossy(ReasonOf(error)) + ".";
  }
}

void TraceLeaving(const Control& field) { SetTrace("frmSetup", (field.Name() + "_LostFocus").c_str()); }

}  // namespace

void frmSetup::EnableField(Control& field, bool enabled) {
  field.Enabled = enabled;
  field.BackColor = enabled ? SystemColour::WindowBackground : SystemColour::MenuBackground;
}

// General

void frmSetup::WireGeneral() {
  ForgetRefusalOnChange(txtLogName);
  txtLogName.LostFocus = [this] { txtLogName_LostFocus(); };
  cmdBrowse.Click = [this] { cmdBrowse_Click(); };
  ForgetRefusalOnChange(txtMaxServices);
  txtMaxServices.LostFocus = [this] { txtMaxServices_LostFocus(); };
  for (const LimitField& limit : limits) {
    ForgetRefusalOnChange(limit.Field);
    limit.Field.LostFocus = [&limit] { LimitField_LostFocus(limit); };
  }
  for (const OptionBox& option : options)
    option.Box.Click = [&option] { option.Setting = option.Box.Value(); };
}

void frmSetup::ShowGeneral() {
  logPathAtLoad = settings.ModemLogDir + settings.ModemLogFile;
  ShowLogPath(logPathAtLoad);
  txtMaxServices.Text = NumberText(settings.MaxServices);
  for (const LimitField& limit : limits) ShowLimit(limit);
  for (const OptionBox& option : options) option.Box.Value = option.Setting;
}

void frmSetup::ShowLogPath(const std::string& path) {
  shownLogPath = path;
  txtLogName.Text = PathText(path);
  txtLogName.ToolTipText = " " + PathText(path) + " ";
}

// A name that no text can show stays what it is as long as nobody types over it.
std::string frmSetup::TypedLogPath() const {
  return txtLogName.Text() == PathText(shownLogPath) ? shownLogPath : ToUtf8(txtLogName.Text());
}

void frmSetup::txtLogName_LostFocus() {
  const std::string path = TypedLogPath();
  const std::string refusal = WhyNoLog(path);
  ShowLogPath(refusal.empty() ? path : logPathAtLoad);
  txtLogName.Refusal = refusal;
  if (!refusal.empty()) return;
  settings.ModemLogFile = FileNamePart(path);
  settings.ModemLogDir = FolderPart(path);
}

void frmSetup::cmdBrowse_Click() {
  const auto path = CurrentHost().AskOpenFile({LogFilter, logFile.CurrentLogDir, TypedLogPath()});
  if (!path) return;
  if (FolderPart(*path) != places.DefaultLogDir && !logFile.ArchiveOpen) WarnOfOtherFolder();
  ShowLogPath(*path);
  txtLogName.SetFocus();  // leaving it takes the choice
}

void frmSetup::WarnOfOtherFolder() const {
  MsgBox(
      {"Your system's active modem log file is normally located\n"
       "in the '" +
           PathText(places.DefaultLogDir) +
           "' directory.\n"
           "\n"
           "The file you have selected is located in a different directory\n"
           "and may not be your system's active modem log file!\n"
           "\n"
           "Please make sure that the file you select here is your\n"
           "system's currently active modem log.",
       "WARNING", Icon::Exclamation});
}

void frmSetup::ShowLimit(const LimitField& limit) {
  limit.Field.Text = std::visit([](const auto* setting) { return NumberText(*setting); }, limit.Limit);
}

void frmSetup::LimitField_LostFocus(const LimitField& limit) {
  TraceLeaving(limit.Field);
  const std::string text = limit.Field.Text;
  if (!IsNumber(text)) {
    ShowLimit(limit);
    return Refuse(limit.Field, AskForNumber);
  }
  const bool fits =
      Attempt([&] { std::visit([&text](auto* setting) { *setting = Val(text); }, limit.Limit); });
  limit.Field.Refusal = fits ? "" : OutOfRange;
}

void frmSetup::txtMaxServices_LostFocus() {
  TraceLeaving(txtMaxServices);
  const std::string text = txtMaxServices.Text;
  if (!IsNumber(text)) {
    txtMaxServices.Text = NumberText(settings.MaxServices);
    return Refuse(txtMaxServices, AskForNumber);
  }
  if (Val(text) < settings.UsedServices) {
    MsgBox(
        {"You are currently using more services than this.\n"
         "Please reduce the number of defined services and try again!",
         ProgramTitle});
    txtMaxServices.Text = NumberText(settings.MaxServices);
    return;
  }
  const bool fits = Attempt([&] { settings.MaxServices = Val(text); });
  txtMaxServices.Refusal = fits ? "" : OutOfRange;
  ShowServiceCount();
}

// Modem

void frmSetup::WireModem() {
  for (const MarkerField& marker : markers)
    marker.Field.LostFocus = [&marker] {
      marker.Marker = UpperCase(marker.Field.Text());
      marker.Field.Text = marker.Marker;
    };
  btnDefaults.Click = [this] { btnDefaults_Click(); };
}

void frmSetup::ShowMarkers() {
  for (const MarkerField& marker : markers) marker.Field.Text = marker.Marker;
}

void frmSetup::btnDefaults_Click() {
  RestoreModemDefaults(settings);
  ShowMarkers();
}

// Costs

void frmSetup::WireCosts() {
  optCalcCosts.Click = [this] { optCalcCosts_Click(); };
  for (CostField& cost : costs) cost.Field.LostFocus = [this, &cost] { CostField_LostFocus(cost); };
}

void frmSetup::ShowCosts() {
  optCalcCosts.Value = settings.CalcCosts;
  optCalcCosts_Click();
  for (CostField& cost : costs) {
    cost.Field.Text = NumberText(cost.Cost);
    CostField_LostFocus(cost);
  }
}

// The amount is taken as it was typed; the field shows it rounded.
void frmSetup::CostField_LostFocus(CostField& cost) {
  const std::string text = cost.Field.Text;
  cost.Rule.Leave();
  if (cost.Rule.Valid()) cost.Cost = TextToNumber(text);
}

void frmSetup::optCalcCosts_Click() {
  settings.CalcCosts = optCalcCosts.Value();
  for (const CostField& cost : costs) {
    EnableField(cost.Field, settings.CalcCosts);
    cost.Caption.Enabled = settings.CalcCosts;
  }
}

// Errors

void frmSetup::WireErrors() {
  optShowErrors.Click = [this] { optShowErrors_Click(); };
  mskNoDisconDuration.Change = [this] {
    durationValid = mskNoDisconDuration.Fits(mskNoDisconDuration.Text);
    mskNoDisconDuration.Refusal = "";
  };
  mskNoDisconDuration.LostFocus = [this] { mskNoDisconDuration_LostFocus(); };
  ForgetRefusalOnChange(mskNoDisconData);
  mskNoDisconData.LostFocus = [this] { mskNoDisconData_LostFocus(); };
}

void frmSetup::optShowErrors_Click() {
  SetTrace("frmSetup", "optShowErrors_Click");
  settings.ShowErrors = optShowErrors.Value();
  Attempt([this] {
    mskNoDisconDuration.Text =
        FormatTime(settings.ShowErrors ? static_cast<float>(settings.NoDisconDuration) : 0, false);
    mskNoDisconData.Text = FormatNumber(settings.ShowErrors ? settings.NoDisconData : 0, "#,##0");
  });
  EnableField(mskNoDisconDuration, settings.ShowErrors);
  EnableField(mskNoDisconData, settings.ShowErrors);
}

// The hours count as minutes too: 01:30:00 are 31 minutes.
void frmSetup::mskNoDisconDuration_LostFocus() {
  if (!durationValid)
    return RefuseAndStay(mskNoDisconDuration, "Enter hours, minutes and seconds of two digits each.");
  const std::string& text = mskNoDisconDuration.Text;
  const auto digits = [&text](std::size_t from) { return Int16(Val(text.substr(from, 2))); };
  const Int16 hours = digits(0), minutes = digits(2 + Region.TimeSeparator.size()),
              seconds = digits(text.size() - 2);
  settings.NoDisconDuration = hours * 60 + minutes * 60 + seconds;
}

void frmSetup::mskNoDisconData_LostFocus() {
  TraceLeaving(mskNoDisconData);
  const std::string text = mskNoDisconData.Text;
  const bool isNumber = IsNumber(text);
  mskNoDisconData.Text = isNumber ? FormatNumber(TextToNumber(text), "#,##0") : "0";
  if (!isNumber) Refuse(mskNoDisconData, AskForNumber);
  settings.NoDisconData = TextToNumber(mskNoDisconData.Text());
}

}  // namespace qel
