#include "ui/frmSetup.h"

#include <algorithm>

#include "core/Surroundings.h"
#include "settings/UserParameters.h"
#include "ui/TabPages.h"

namespace qel {

namespace {

struct Page {
  const char *Caption, *ToolTip;
  int HelpContext;
};

const Page Pages[] = {
    {"General", "General Operating Parameters", 51},
    {"Modem", "Modem Response Settings", 33},
    {"Services", "Service Descriptions, Numbers and Costs", 36},
    {"Costs", "Default Connection Costs and Currency Format", 46},
    {"Format", "Date & Currency Format", 47},
    {"Errors", "Error Correction", 48},
    {"Holidays", "User Defined Holidays", 54},
    {"Report", "Default Report Settings", 59},
};

constexpr int ModemPage = 2, ServicesPage = 3;

}  // namespace

frmSetup::frmSetup(Windows& owner) : Window("frmSetup", owner) {
  std::vector<Tab> tabs;
  for (const Page& page : Pages) tabs.push_back({page.Caption, page.ToolTip});
  TabStrip1.SetTabs(std::move(tabs));
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  KeyDown = [this](KeyPress& press) { Form_KeyDown(press); };
  btnCancel.ClickMovesFocus = false;
  btnDefaults.Click = [this] { Modem.btnDefaults_Click(); };
  General.MaxServicesTaken = [this] { Services.ShowServiceCount(); };
}

void frmSetup::Form_Load() {
  TakeUpOthersRecords(store, settings);
  Format.Show();
  SetTrace("frmSetup", "Form_Load");
  edited = settings;
  General.Show();
  Modem.Show();
  Errors.Show();
  Costs.Show();
  Services.Show();
  Report.Show();
  Holidays.Show();
}

void frmSetup::Form_Activate() {
  TabStrip1_Click();
  Report.EnableStartFields();
  Services.ShowServiceCount();
  General.txtLogName.SetFocus();
}

void frmSetup::TabStrip1_Click() {
  const int tab = TabStrip1.SelectedTab();
  ShowSelectedPage(TabStrip1, Settings);
  btnDefaults.Enabled = btnDefaults.Visible = tab == ModemPage;
  Services.fralblServices.Visible = tab == ServicesPage && !Services.ProgressBar1.Visible;
  HelpContextID = Pages[tab - 1].HelpContext;
  if (tab != ServicesPage)
    TabStrip1.SetFocus();
  else if (edited.UsedServices > 0)
    Services.lstServices.SetFocus();
}

void frmSetup::Form_KeyDown(KeyPress& press) {
  if (SelectNextTabByKey(TabStrip1, press)) return;
  if (press.key != Key::Delete || TabStrip1.SelectedTab() != ServicesPage) return;
  press.Handled = true;
  Services.DeleteService();
}

void frmSetup::btnSave_Click() {
  Holidays.Store();
  const auto differs = [this](auto... options) { return ((settings.*options != edited.*options) || ...); };
  LogPathChanged = differs(&qel::Settings::ModemLogFile, &qel::Settings::ModemLogDir);
  OptionsChanged =
      differs(&qel::Settings::FlatToolbars, &qel::Settings::UserStartPref, &qel::Settings::UserStartDate,
              &qel::Settings::UserStartOfWeek, &qel::Settings::UserStartOfMonth);
  settings = edited;
  saved = true;
  session.StoreSettings();
  Unload();
}

// The settings are as they were, but for two whose edits stay, and for what was made of services that were
// not there.
void frmSetup::restoreOldValues() {
  SetTrace("frmSetup", "restoreOldValues");
  settings.NoDisconData = edited.NoDisconData;
  settings.CostPerMeg = edited.CostPerMeg;
  for (int i = std::max<int>(settings.UsedServices, 0); i <= settings.Services.Last(); ++i)
    settings.Services[i] = edited.Services[i];
}

bool frmSetup::Form_Unload() {
  if (!saved) restoreOldValues();
  if (Format.RegionalSettingsOpened)
    MsgBox(
        {"QEL has detected that you opened the \n"
         "Windows Regional Settings Dialog.\n"
         "\n"
         "If you have made any adjustments to your\n"
         "Systems Regional Settings then you\n"
         "MUST exit and re-start QEL.",
         "Windows Regional Settings"});
  return true;
}

}  // namespace qel
