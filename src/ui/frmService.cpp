#include "ui/frmService.h"

#include <algorithm>

#include "core/Surroundings.h"
#include "platform/Files.h"
#include "ui/HelpNumbers.h"
#include "ui/QuarterHours.h"
#include "ui/TabPages.h"
#include "values/CodePage.h"
#include "values/Region.h"

namespace qel {

namespace {

// Parts of the names of those controls that no option of a tab disables.
constexpr const char* AlwaysUsable[] = {"DESCRIPTION", "NUMBER",   "NOTICE", "BTNCANCEL", "SHAPE", "IMAGE",
                                        "OPT",         "TABSTRIP", "FRA",    "MEG",       "BLOCK", "CHKFREE",
                                        "CHKWARN",     "NOTES",    "DIALOG", "MAXCHARGE"};

bool Named(const Control& control, const std::string& word) {
  return UpperCase(control.Name()).find(UpperCase(word)) != std::string::npos;
}

}  // namespace

frmService::frmService(Windows& owner) : Window("frmService", owner) {
  TabStrip1.SetTabs({{"Service Details", "Dialed Service Description and Number"},
                     {"Dial-up Cost", "Dial-up Tariffs and Charges"},
                     {"Service Cost", "On-Line Charges For This Service"},
                     {"Warnings", "User Defined Alerts/Warnings for this Service"}});
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  KeyDown = [this](KeyPress& press) { SelectNextTabByKey(TabStrip1, press); };
  for (OptionButton& option : optDialCost)
    option.Click = [this, &option] { optDialCost_Click(option.Index()); };
  for (OptionButton& option : optServiceCost)
    option.Click = [this, &option] { optServiceCost_Click(option.Index()); };
  btnCancel.ClickMovesFocus = false;
  WireFields();
  WireTariffs();
  WireWarnings();
}

void frmService::Form_Load() {
  SetTrace("frmService", "Form_Load");
  ShowSelectedPage(TabStrip1, fraService);
  imgService.Visible = Edited->ShowGraphic;
  if (Edited->WarningSoundFile.empty())
    Edited->WarningSoundFile = places.AppPath + PathSeparator + "exceeded.wav";
  FillComboBoxes();
  SetTariffColumns();
  TariffCopy.Make(MaxTariffs - 1);
  if (NewService)
    LoadNewService();
  else
    ShowService(Edited->Services[ServiceIndex]);
  txtWarningSound.Text = PathText(Edited->WarningSoundFile);
  for (Label& label : lblCurrencySymbol) label.Caption = "(" + Region.CurrencySymbol + ")";
  DisplayTariffs();
  ShowTariffCount();
  ShowTariffSummary();
  SetTariffButtons();
  RefreshOKButton();
}

void frmService::Form_Activate() {
  CurrentHost().SetMousePointer(MousePointer::Default);
  TabStrip1_Click();
  txtDescription.SetFocus();
}

void frmService::FillComboBoxes() {
  lstServiceFlexPeriod.AddItems({"Day", "Week", "Month"});
  lstMegPeriod.AddItems({"Day", "Week", "Month", "Session"});
  for (ComboBox* list : {&lstFreePeriodStart, &lstFreePeriodEnd}) {
    list->AddItems(QuarterHours());
    list->SetListIndex(0);
  }
}

void frmService::TabStrip1_Click() {
  ShowSelectedPage(TabStrip1, fraService);
  HelpContextID = HelpService + TabStrip1.SelectedTab() - 1;
  switch (TabStrip1.SelectedTab()) {
    case 1:
      txtDescription.SetFocus();
      break;
    case 2:
      ShowWeek();
      optDialCost_Click(DialOption - 1);
      break;
    case 3:
      optServiceCost_Click(ServiceOption - 1);
      break;
    case 4:
      chkWarnings_Click();
      break;
  }
  // Nobody types into a page that has gone.
  if (ActiveControl() && !ActiveControl()->CanHaveFocus()) TabStrip1.SetFocus();
  RefreshOKButton();
}

void frmService::optDialCost_Click(int index) {
  Disable_All_Controls();
  if (index == 0) {
    EnableControlGroup("DialFixedTariff");
    DialOption = 1;
    txtDialFixedTariff.SetFocus();
  }
  if (index == 1) {
    EnableControlGroup("DialTimeTariff");
    ColourTariffCount();
    DialOption = 2;
    if (lstDialTimeTariff.RowCount() > 0) {
      lstDialTimeTariff.SetFocus();
      if (SelectedTariff == 0) SelectedTariff = 1;
      lstDialTimeTariff.SelectRow(std::min<int>(SelectedTariff, lstDialTimeTariff.RowCount()));
    } else {
      btnDialTimeTariffNew.SetFocus();
    }
    SetTariffButtons();
  }
  RefreshOKButton();
}

void frmService::optServiceCost_Click(int index) {
  Disable_All_Controls();
  if (index == 0) {
    EnableControlGroup("ServiceFixed");
    ServiceOption = 1;
    txtServiceFixedRate.SetFocus();
  }
  if (index == 1) {
    EnableControlGroup("ServiceFlex");
    ServiceOption = 2;
    txtServiceFlexRate.SetFocus();
  }
  chkFreePeriod_Click();
  RefreshOKButton();
}

void frmService::chkFreePeriod_Click() {
  if (chkFreePeriod.Value) return EnableControlGroup("FreePeriod");
  SetUsable(lstFreePeriodStart, false);
  SetUsable(lstFreePeriodEnd, false);
  GreyText(lblFreePeriod2);
}

void frmService::Disable_All_Controls() {
  for (Control* control : Controls())
    if (std::none_of(std::begin(AlwaysUsable), std::end(AlwaysUsable),
                     [control](const char* word) { return Named(*control, word); }))
      SetUsable(*control, false);
}

void frmService::EnableControlGroup(const std::string& word) {
  for (Control* control : Controls())
    if (Named(*control, word)) SetUsable(*control, true);
}

void frmService::SetUsable(Control& control, bool usable) {
  const bool list = Named(control, "LST");
  if (list || Named(control, "TXT"))
    EnableField(control, usable);
  else
    control.Enabled = usable;
  if (list || (usable && Named(control, "LBL"))) GreyText(control, !usable);
}

void frmService::btnOK_Click() {
  if (!FieldsValid()) {
    RefreshOKButton();
    MsgBox(
        {"Not All Of The Options You Have Selected Have Been Entered Correctly!\n\n"
         "Please review your options for this service. The information you have\n"
         "entered is either incomplete or inappropriate.",
         "WARNING - Incorrect Parameters", Icon::Exclamation});
    return;
  }
  SetTrace("frmService", "btnOK_Click");
  CurrentHost().SetMousePointer(MousePointer::Hourglass);
  ServiceEditCancelled = false;
  WriteService(Edited->Services[ServiceIndex]);
  CurrentHost().SetMousePointer(MousePointer::Default);
  Unload();
}

}  // namespace qel
