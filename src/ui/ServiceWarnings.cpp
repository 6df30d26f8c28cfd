// The service editor's warnings: what they watch, and the sound that goes with them.
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "platform/Files.h"
#include "ui/frmService.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr char SoundFilter[] = "SoundWave Files (*.wav)|*.wav";

}  // namespace

void frmService::WireWarnings() {
  for (OptionButton& option : optWarning)
    option.Click = [this, &option] {
      WarningOption = Int16(option.Index());
      chkWarnings_Click();
    };
  txtWarningSound.Change = [this] { txtWarningSound.Refusal = ""; };
  txtWarningSound.GotFocus = [this] { soundTextAtFocus = txtWarningSound.Text; };
  txtWarningSound.LostFocus = [this] { txtWarningSound_LostFocus(); };
}

void frmService::chkWarnings_Click() {
  const bool on = chkWarnings.Value;
  for (OptionButton& option : optWarning) option.Enabled = on;
  chkWarnDisplay.Enabled = chkWarnSound.Enabled = on;
  if (on)
    chkWarnSound_Click();
  else
    EnableSound(false);
  for (std::size_t option = 0; option < thresholds.size(); ++option)
    for (Control* control : thresholds[option])
      SetUsable(*control, on && static_cast<int>(option) == WarningOption);
  for (const auto& threshold : thresholds) threshold.front()->SetFocus();  // the one that is enabled takes it
  RefreshOKButton();
}

void frmService::EnableSound(bool usable) {
  for (Control* control : {static_cast<Control*>(&txtWarningSound), static_cast<Control*>(&btnWarnBrowse),
                           static_cast<Control*>(&btnWarnPlay)})
    SetUsable(*control, usable);
}

// A warning that neither shows nor sounds is none: one of the two stays on.
void frmService::chkWarnDisplay_Click() {
  if (!chkWarnDisplay.Value && !chkWarnSound.Value) chkWarnDisplay.Value = true;
}

void frmService::chkWarnSound_Click() {
  if (!chkWarnDisplay.Value && !chkWarnSound.Value) chkWarnDisplay.Value = true;
  EnableSound(chkWarnSound.Value);
  RefreshOKButton();
}

// The path that is shown. What was not typed keeps its bytes, which the text may not hold.
std::string frmService::SoundPath() const {
  const std::string& text = txtWarningSound.Text;
  return text == PathText(Edited->WarningSoundFile) ? Edited->WarningSoundFile : ToUtf8(text);
}

// What cannot be looked up is not there: no half-typed path is worth a word, let alone the program's end.
bool frmService::SoundExists() const {
  bool exists = false;
  IgnoreErrors([&] { exists = FileExists(SoundPath()); });
  return exists;
}

void frmService::btnWarnBrowse_Click() {
  const std::string name = FileNamePart(Edited->WarningSoundFile);
  if (const auto path =
          CurrentHost().AskOpenFile({SoundFilter, FolderPart(Edited->WarningSoundFile), name})) {
    Edited->WarningSoundFile = *path;
    txtWarningSound.Text = PathText(*path);
    RefreshOKButton();
  }
  txtWarningSound.SetFocus();
}

// A file that cannot be played stays silent.
void frmService::btnWarnPlay_Click() {
  if (!btnWarnPlay.Enabled) return;
  btnWarnPlay.Enabled = false;
  CurrentHost().PlaySoundFile(Edited->WarningSoundFile);
  btnWarnPlay.Enabled = true;
}

void frmService::txtWarningSound_LostFocus() {
  if (SoundExists()) {
    Edited->WarningSoundFile = SoundPath();
    txtWarningSound.Refusal = "";
  } else {
    txtWarningSound.Text = soundTextAtFocus;
    Refuse(txtWarningSound, "There is no such file, so the former one is back.");
  }
  RefreshOKButton();
}

std::string frmService::MissingWarning() const {
  if (!chkWarnings.Value) return "";
  if (const std::string missing = MissingThreshold(); !missing.empty()) return missing;
  if (chkWarnSound.Value && !SoundExists()) return "The sound file does not exist.";
  return "";
}

// Only the field or fields of the chosen option count.
std::string frmService::MissingThreshold() const {
  const auto isSet = [this](const TextBox& field) { return Passed(field) && XVal(field.Text) != 0; };
  switch (WarningOption) {
    case 0: {
      const bool passed = Passed(txtWarningMinutes) && Passed(txtWarningHours);
      const bool some = XVal(txtWarningMinutes.Text) + XVal(txtWarningHours.Text) != 0;
      return passed && some ? "" : "Enter the hours and minutes to warn of.";
    }
    case 1:
      return isSet(txtWarndialupCost) ? "" : "Enter the dial-up costs to warn of.";
    case 2:
      return isSet(txtWarnServiceCost) ? "" : "Enter the service costs to warn of.";
    case 3:
      return isSet(txtWarnData) ? "" : "Enter the kilobytes to warn of.";
    default:
      return "";
  }
}

}  // namespace qel
