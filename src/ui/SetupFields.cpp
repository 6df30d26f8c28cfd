// The tabs of plain fields: General, Modem, Costs, Errors.
#include "analysis/MarkersCheck.h"
#include "core/ErrorHandler.h"
#include "core/ShownDates.h"
#include "core/Surroundings.h"
#include "core/Version.h"
#include "platform/Files.h"
#include "settings/UserParameters.h"
#include "ui/SetupTabs.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr char LogFilter[] = "Modem Log Files (*.txt;*.log)|*.txt;*.log";
constexpr char OutOfRange[] = "This number is out of range.";

// Empty where the file is there. A folder that may not be entered is a reason like any other.
std::string WhyNoLog(const std::string& path) {
  try {
    return FileExists(path) ? "" : "There is no file \"" + PathText(path) + "\".";
  } catch (const RunTimeError& error) {
    return "\"" + PathText(path) + "\" cannot be reached: " + FromUtf8Lossy(ReasonOf(error)) + ".";
  }
}

// Leaves the field by its rule, where an error is to name it.
void LeaveTraced(RuledField& ruled) {
  ruled.Field().LostFocus = [&ruled] {
    SetTrace("frmSetup", ruled.Field().Name() + "_LostFocus");
    ruled.Leave();
  };
}

}  // namespace

SetupGeneral::SetupGeneral(const SetupTab& tab) : SetupTab(tab) {
  txtLogName.Change = [this] { txtLogName.Refusal = ""; };
  txtLogName.LostFocus = [this] { txtLogName_LostFocus(); };
  for (LimitField& limit : limits) {
    limit.Rule.Former = [&limit] { return limit.Shown(); };
    limit.Rule.Taken = [this, &limit](const std::string& typed) { TakeLimit(limit, typed); };
    LeaveTraced(limit.Rule);
  }
  for (const OptionBox& option : options)
    option.Box.Click = [&option] { option.Setting = option.Box.Value(); };
}

void SetupGeneral::Show() {
  logPathAtLoad = edited.ModemLogDir + edited.ModemLogFile;
  ShowLogPath(logPathAtLoad);
  for (const LimitField& limit : limits) limit.Field.Text = limit.Shown();
  for (const OptionBox& option : options) option.Box.Value = option.Setting;
}

void SetupGeneral::ShowLogPath(const std::string& path) {
  shownLogPath = path;
  txtLogName.Text = PathText(path);
  txtLogName.ToolTipText = " " + PathText(path) + " ";
}

// A name that no text can show stays what it is as long as nobody types over it.
std::string SetupGeneral::TypedLogPath() const {
  return txtLogName.Text() == PathText(shownLogPath) ? shownLogPath : ToUtf8(txtLogName.Text());
}

void SetupGeneral::txtLogName_LostFocus() {
  const std::string path = TypedLogPath();
  const std::string refusal = WhyNoLog(path);
  ShowLogPath(refusal.empty() ? path : logPathAtLoad);
  txtLogName.Refusal = refusal;
  if (!refusal.empty()) return;
  edited.ModemLogFile = FileNamePart(path);
  edited.ModemLogDir = FolderPart(path);
}

void SetupGeneral::cmdBrowse_Click() {
  const auto path =
      CurrentHost().AskOpenFile({LogFilter, windows.session.logFile.CurrentLogDir, TypedLogPath()});
  if (!path) return;
  if (FolderPart(*path) != windows.session.places.DefaultLogDir && !windows.session.logFile.ArchiveOpen)
    WarnOfOtherFolder();
  ShowLogPath(*path);
  txtLogName.SetFocus();  // leaving it takes the choice
}

void SetupGeneral::WarnOfOtherFolder() const {
  MsgBox(
      {"Your system's active modem log file is normally located\n"
       "in the '" +
           PathText(windows.session.places.DefaultLogDir) +
           "' directory.\n"
           "\n"
           "The file you have selected is located in a different directory\n"
           "and may not be your system's active modem log file!\n"
           "\n"
           "Please make sure that the file you select here is your\n"
           "system's currently active modem log.",
       "WARNING", Icon::Exclamation});
}

std::string SetupGeneral::LimitField::Shown() const {
  return std::visit([](const auto* limit) { return NumberText(*limit); }, Limit);
}

void SetupGeneral::TakeLimit(const LimitField& limit, const std::string& typed) {
  const bool ofServices = &limit.Field == &txtMaxServices;
  if (ofServices && Val(typed) < edited.UsedServices) {
    MsgBox(
        {"You are currently using more services than this.\n"
         "Please reduce the number of defined services and try again!",
         ProgramTitle});
    limit.Field.Text = limit.Shown();
    return;
  }
  const bool fits =
      Attempt([&] { std::visit([&typed](auto* setting) { *setting = Val(typed); }, limit.Limit); });
  if (!fits) limit.Field.Refusal = OutOfRange;
  if (ofServices) MaxServicesTaken();
}

SetupModem::SetupModem(const SetupTab& tab) : SetupTab(tab) {
  for (const MarkerField& marker : markers)
    marker.Field.LostFocus = [&marker] {
      marker.Marker = UpperCase(marker.Field.Text());
      marker.Field.Text = marker.Marker;
    };
  btnFromLog.Click = [this] { btnFromLog_Click(); };
}

void SetupModem::Show() {
  for (const MarkerField& marker : markers) marker.Field.Text = marker.Marker;
}

void SetupModem::btnDefaults_Click() {
  RestoreModemDefaults(edited);
  Show();
}

// Offers texts that find what is in the log in hand, for those that find nothing there.
void SetupModem::btnFromLog_Click() {
  SetTrace("frmSetup", "btnFromLog_Click");
  const std::string& path = windows.session.logFile.CurrentLogPath;
  std::vector<MissingMarker> missing;
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  const bool read = Attempt([&] { missing = MissingMarkers(edited, path); });
  CurrentHost().SetMousePointer(MousePointer::Default);
  if (!read) return;
  if (missing.empty()) {
    MsgBox({"No line of " + PathText(FileNamePart(path)) + " looks like one that these texts miss.",
            ProgramTitle});
    return;
  }
  std::string question = "These texts find nothing in " + PathText(FileNamePart(path)) +
                         ", though lines look like what they are for:";
  for (const auto& [marker, name, instead, line] : missing)
    question +=
        "\n\nThe " + name + " text: '" + instead + "' instead of '" + edited.*marker + "' finds\n" + line;
  if (MsgBox({question + "\n\nDo you want to take them?", ProgramTitle, Icon::Question, Buttons::YesNo}) !=
      Answer::Yes)
    return;
  for (const auto& found : missing) edited.*found.Marker = found.Instead;
  Show();
}

SetupCosts::SetupCosts(const SetupTab& tab) : SetupTab(tab) {
  // The amount is taken as it was typed; the field shows it rounded.
  for (CostField& cost : costs)
    cost.Rule.Taken = [&cost](const std::string& typed) { cost.Cost = TextToNumber(typed); };
}

void SetupCosts::Show() {
  optCalcCosts.Value = edited.CalcCosts;
  optCalcCosts_Click();
  for (CostField& cost : costs) {
    cost.Field.Text = NumberText(cost.Cost);
    cost.Rule.Leave();
  }
}

void SetupCosts::optCalcCosts_Click() {
  edited.CalcCosts = optCalcCosts.Value();
  for (const CostField& cost : costs) {
    EnableField(cost.Field, edited.CalcCosts);
    cost.Caption.Enabled = edited.CalcCosts;
  }
}

SetupErrors::SetupErrors(const SetupTab& tab) : SetupTab(tab) {
  mskNoDisconDuration.Change = [this] {
    durationValid = mskNoDisconDuration.Fits(mskNoDisconDuration.Text);
    mskNoDisconDuration.Refusal = "";
  };
  mskNoDisconDuration.LostFocus = [this] { mskNoDisconDuration_LostFocus(); };
  noDisconData.Left = [this] { edited.NoDisconData = TextToNumber(mskNoDisconData.Text()); };
  LeaveTraced(noDisconData);
}

void SetupErrors::Show() {
  mskNoDisconDuration.Mask = "##" + Region.TimeSeparator + "##" + Region.TimeSeparator + "##";
  Label8.Caption = "hh" + Region.TimeSeparator + "mm" + Region.TimeSeparator + "ss";
  optShowErrors.Value = edited.ShowErrors;
  optShowErrors_Click();
}

void SetupErrors::optShowErrors_Click() {
  SetTrace("frmSetup", "optShowErrors_Click");
  edited.ShowErrors = optShowErrors.Value();
  Attempt([this] {
    mskNoDisconDuration.Text =
        FormatTime(edited.ShowErrors ? static_cast<float>(edited.NoDisconDuration) : 0, false);
    mskNoDisconData.Text = FormatNumber(edited.ShowErrors ? edited.NoDisconData : 0, "#,##0");
  });
  EnableField(mskNoDisconDuration, edited.ShowErrors);
  EnableField(mskNoDisconData, edited.ShowErrors);
}

// The hours count as minutes too: 01:30:00 are 31 minutes.
void SetupErrors::mskNoDisconDuration_LostFocus() {
  if (!durationValid)
    return RefuseAndStay(mskNoDisconDuration, "Enter hours, minutes and seconds of two digits each.");
  const std::string& text = mskNoDisconDuration.Text;
  const auto digits = [&text](std::size_t from) { return Int16(Val(text.substr(from, 2))); };
  const Int16 hours = digits(0), minutes = digits(2 + Region.TimeSeparator.size()),
              seconds = digits(text.size() - 2);
  edited.NoDisconDuration = hours * 60 + minutes * 60 + seconds;
}

}  // namespace qel
