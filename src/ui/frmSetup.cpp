#include "ui/frmSetup.h"

#include "core/Surroundings.h"
#include "modemlog/LogFile.h"
#include "settings/UserParameters.h"
#include "ui/TabPages.h"
#include "values/Region.h"

namespace qel {

bool OptionsChanged;
bool LogPathChanged;
TheForm<frmSetup> SetupForm;

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

constexpr int ModemTab = 2, ServicesTab = 3;

}  // namespace

frmSetup::frmSetup() : Form("frmSetup") {
  std::vector<Tab> tabs;
  for (const Page& page : Pages) tabs.push_back({page.Caption, page.ToolTip});
  TabStrip1.SetTabs(std::move(tabs));
  TabStrip1.Click = [this] { TabStrip1_Click(); };
  KeyDown = [this](KeyPress& press) { Form_KeyDown(press); };
  btnSave.Click = [this] { btnSave_Click(); };
  btnCancel.Click = [this] { Unload(); };
  btnCancel.ClickMovesFocus = false;
  for (Picture& icon : Icon) icon.Click = [this, &icon] { Icon_Click(icon.Index()); };
  WireGeneral();
  WireModem();
  WireServices();
  WireCosts();
  WireErrors();
  WireHolidays();
  WireReport();
}

void frmSetup::Form_Load() {
  TakeUpOthersRecords(Registry, settings);
  ShowFormats();
  mskNoDisconDuration.Mask = "##" + Region.TimeSeparator + "##" + Region.TimeSeparator + "##";
  Label8.Caption = "hh" + Region.TimeSeparator + "mm" + Region.TimeSeparator + "ss";
  SetTrace("frmSetup", "Form_Load");
  snapshot.Take();
  ShowGeneral();
  ShowMarkers();
  optShowErrors.Value = settings.ShowErrors;
  optShowErrors_Click();
  ShowCosts();
  ShowServices();
  ShowReportSettings();
  LoadHolidays();
  EnableEditing();
}

void frmSetup::Form_Activate() {
  TabStrip1_Click();
  EnableStartFields();
  ShowServiceCount();
  txtLogName.SetFocus();
}

void frmSetup::TabStrip1_Click() {
  const int tab = TabStrip1.SelectedTab();
  ShowSelectedPage(TabStrip1, Settings);
  btnDefaults.Enabled = btnDefaults.Visible = tab == ModemTab;
  fralblServices.Visible = tab == ServicesTab && !ProgressBar1.Visible;
  HelpContextID = Pages[tab - 1].HelpContext;
  if (tab != ServicesTab)
    TabStrip1.SetFocus();
  else if (settings.UsedServices > 0)
    lstServices.SetFocus();
}

void frmSetup::Form_KeyDown(KeyPress& press) {
  if (SelectNextTabByKey(TabStrip1, press)) return;
  if (press.key != Key::Delete || TabStrip1.SelectedTab() != ServicesTab) return;
  press.Handled = true;
  DeleteService();
}

void frmSetup::btnSave_Click() {
  saved = true;
  StoreHolidays();
  WriteUserParameters(Registry, settings, windowSettings);
  Unload();
}

void frmSetup::restoreOldValues() {
  SetTrace("frmSetup", "restoreOldValues");
  snapshot.Restore();
}

bool frmSetup::Form_Unload() {
  if (!saved) restoreOldValues();
  const qel::Settings& before = snapshot.Before();
  LogPathChanged =
      saved && (before.ModemLogFile != settings.ModemLogFile || before.ModemLogDir != settings.ModemLogDir);
  if (LogPathChanged) findings.LogCorrupt = findings.LogTooBig = false;
  if (regionalSettingsOpened)
    MsgBox(
        {"QEL has detected that you opened the \n"
         "Windows Regional Settings Dialog.\n"
         "\n"
         "If you have made any adjustments to your\n"
         "Systems Regional Settings then you\n"
         "MUST exit and re-start QEL.",
         "Windows Regional Settings"});
  OptionsChanged =
      before.FlatToolbars != settings.FlatToolbars || before.UserStartPref != settings.UserStartPref ||
      before.UserStartDate != settings.UserStartDate || before.UserStartOfWeek != settings.UserStartOfWeek ||
      before.UserStartOfMonth != settings.UserStartOfMonth;
  return true;
}

}  // namespace qel
