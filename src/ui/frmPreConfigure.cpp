#include "ui/frmPreConfigure.h"

#include "settings/UserParameters.h"
#include "ui/HelpNumbers.h"

namespace qel {

namespace {

void ShowState(bool on, Label& word, Picture& picture) {
  word.Caption = on ? "ON" : "OFF";
  picture.Frame = on ? 1 : 2;
}

}  // namespace

frmPreConfigure::frmPreConfigure(Windows& owner) : Window("frmPreConfigure", owner) {
  HelpContextID = HelpModemWizard;
  Timer1.Enabled = false;
  Image1.Frame = 1;
  Image2.Frame = 2;
  Image3.Frame = 3;
}

void frmPreConfigure::Form_Load() {
  Check1.Value = settings.ModemCheck;
  Check1.Click = [this] { Check1_Click(); };  // only now: what it begins with is nobody's click
  RichTextBox1.Caption =
      "This is QEL's Modem and Dial-up Networking\n"
      "Configuration Wizard.\n"
      "\n"
      "It will automatically detect the modems installed on your system and optionally configure them for "
      "use with QEL.\n"
      "\n"
      "Click the 'Next' button and the wizard will take you through a step by step process to configure your "
      "dial-up networking system for QEL.";
  for (int i = 0; i < modems.ModemCount; ++i) {
    const ModemRecord& modem = modems.Modems[i];
    lstModems.AddItem(modem.DriverDesc + (modem.AttachedTo.empty() ? "" : " on " + modem.AttachedTo));
  }
  lstModems.SetListIndex(0);
  CheckStep();
}

void frmPreConfigure::CheckStep() {
  for (Frame& frame : fraCheck) frame.Enabled = frame.Visible = false;
  Frame& current = fraCheck[static_cast<std::size_t>(int{step})];
  current.Enabled = current.Visible = true;
  if (step == 0) btnCancel.Caption = "&Cancel";
  if (step == 1) btnCancel.Caption = "< &Back";
  if (step == 2) CompareModem();
  if (step == 3) Finish();
}

void frmPreConfigure::CompareModem() {
  selectedModem = Int16(lstModems.ListIndex() + 1);
  const ModemRecord& modem = modems.Modems[selectedModem - 1];
  lblSelModem.Caption = modem.DriverDesc;
  ShowState(modem.Logging, lblCurrentLogging, ImgCurrentLogging);
  ShowState(modem.Echo, lblCurrentEcho, imgCurrentEcho);
  ShowState(true, lblRecLogging, imgRecLogging);
  ShowState(true, lblRecEcho, imgRecEcho);
  lblRecLogging.Visible = lblRecEcho.Visible = true;  // wherever the blinking left them
  Timer1.Enabled = !modem.Logging;                    // it may run from a look at another one
  if (modem.LoggingPath.empty() || !modem.Logging || !modem.Echo)
    AskForChanges();
  else
    TellWellSetUp();
}

void frmPreConfigure::AskForChanges() {
  RichTextBox2.Caption =
      "The wizard needs to make some changes to your modem and dial-up networking settings in order for QEL "
      "to work as intended.\n"
      "\n"
      "Click the 'Finish' button to have the wizard make these changes for you.\n"
      "\n";
  btnNext.Caption = "&Finish";
  modems.ModemConfigOK = false;
}

void frmPreConfigure::TellWellSetUp() {
  RichTextBox2.Caption =
      "The wizard has determined that this modem and its dial-up networking settings are already configured "
      "correctly for QEL. \n"
      "\n"
      "Click the 'OK' button to continue.";
  btnNext.Caption = "&OK";
  modems.ModemConfigOK = true;
  if (modems.ModemCount > 1)
    settings.PreferredModem = selectedModem;  // for this run; only a change stores it
}

void frmPreConfigure::Finish() {
  Timer1.Enabled = false;
  btnNext.Caption = "&OK";
  btnCancel.Visible = false;
  if (!modems.ModemConfigOK) modems.DoChange(selectedModem);
  const std::string outcome =
      modems.NewLogStarted
          ? "A new empty modem log file has been created for you. Reports will not be available until after "
            "your next dial-up networking session."
          : "QEL will check your settings each time you start but you will not see this wizard again unless "
            "your system changes. You can disable this start check by unchecking the option below.";
  RichTextBox3.Caption =
      "C O N G R A T U L A T I O N S .\n"
      "\n"
      "You have finished configuring your modem and dial-up networking system for use with QEL.\n"
      "\n" +
      outcome +
      "\n"
      "\n"
      "Click the 'OK' button to continue.\n"
      "\n";
}

void frmPreConfigure::btnNext_Click() {
  if (btnNext.Caption == "&OK") {
    Unload();
    return;
  }
  ++step;
  CheckStep();
}

// Going back leaves the other button's caption and the blinking as they are until the next comparison.
void frmPreConfigure::btnCancel_Click() {
  if (step == 0) {
    Unload();
    return;
  }
  --step;
  CheckStep();
}

// What is to change blinks.
void frmPreConfigure::Timer1_Timer() {
  const ModemRecord& modem = modems.Modems[selectedModem - 1];
  if (!modem.Logging) lblRecLogging.Visible = !lblRecLogging.Visible;
  if (!modem.Echo) lblRecEcho.Visible = !lblRecEcho.Visible;
}

void frmPreConfigure::Check1_Click() {
  settings.ModemCheck = bool{Check1.Value};
  StoreGeneralValue(store, "ModemCheck", bool{settings.ModemCheck}, REG_SZ);
}

}  // namespace qel
