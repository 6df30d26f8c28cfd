// The options window: every setting of the program, the services and the holidays. Its fields change a copy
// of the settings as they are left, which saving puts in their place.
//
// Its handlers are told apart by tab: frmSetup.cpp (life of the window, tabs, saving), SetupFields.cpp
// (General, Modem, Costs, Errors), SetupServices.cpp, SetupFormat.cpp, SetupHolidays.cpp, SetupReport.cpp.
#pragma once

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "ui/FieldRule.h"
#include "ui/Windows.h"

namespace qel {

class frmSetup : public Window {
 public:
  explicit frmSetup(Windows& owner);

  TabStrip TabStrip1{*this, "TabStrip1"};
  std::array<Frame, 8> Settings{{{*this, "Settings", 0},
                                 {*this, "Settings", 1},
                                 {*this, "Settings", 2},
                                 {*this, "Settings", 3},
                                 {*this, "Settings", 4},
                                 {*this, "Settings", 5},
                                 {*this, "Settings", 6},
                                 {*this, "Settings", 7}}};
  Frame fralblServices{*this, "fralblServices"};
  Label lblServices{fralblServices, "lblServices"};

  // General
  TextBox txtLogName{Settings[0], "txtLogName"};
  Button cmdBrowse{Settings[0], "cmdBrowse"};
  TextBox txtMaxServices{Settings[0], "txtMaxServices"};
  TextBox txtMaxConnections{Settings[0], "txtMaxConnections"};
  TextBox txtMaxConnectDays{Settings[0], "txtMaxConnectDays"};
  TextBox txtMaxLogSize{Settings[0], "txtMaxLogSize"};
  CheckBox optEditLog{Settings[0], "optEditLog"};
  CheckBox optShowToolbars{Settings[0], "optShowToolbars"};
  CheckBox optFlatToolBars{Settings[0], "optFlatToolBars"};
  CheckBox optModemCheck{Settings[0], "optModemCheck"};
  CheckBox optTips{Settings[0], "optTips"};
  CheckBox optAutoOpt{Settings[0], "optAutoOpt"};
  CheckBox optShowGraphic{Settings[0], "optShowGraphic"};

  // Modem
  TextBox TextOptDial{Settings[1], "TextOptDial"};
  TextBox TextOptAnswer{Settings[1], "TextOptAnswer"};
  TextBox TextOptConnect{Settings[1], "TextOptConnect"};
  TextBox TextOptUsrDisconnect{Settings[1], "TextOptUsrDisconnect"};
  TextBox TextOptRemDisconnect{Settings[1], "TextOptRemDisconnect"};
  TextBox TextOptReads{Settings[1], "TextOptReads"};
  TextBox TextOptWrites{Settings[1], "TextOptWrites"};

  // Services
  ListView lstServices{Settings[2], "lstServices"};
  Button btnNew{Settings[2], "btnNew"};
  Button btnEdit{Settings[2], "btnEdit"};
  Button btnDelete{Settings[2], "btnDelete"};
  Button btnCopy{Settings[2], "btnCopy"};
  Button btnScan{Settings[2], "btnScan"};
  ProgressBar ProgressBar1{Settings[2], "ProgressBar1"};
  Label lblServiceNotice{Settings[2],
                         "lblServiceNotice"};  // what the costs of the services may surprise with

  // Costs
  CheckBox optCalcCosts{Settings[3], "optCalcCosts"};
  Label lblDialCost{Settings[3], "lblDialCost"};
  TextBox txtDialCost{Settings[3], "txtDialCost"};
  Label lblCostPerHour{Settings[3], "lblCostPerHour"};
  TextBox txtCostPerHour{Settings[3], "txtCostPerHour"};
  Label lblCostPerMeg{Settings[3], "lblCostPerMeg"};
  TextBox txtCostPerMeg{Settings[3], "txtCostPerMeg"};
  Label lblCostNotice{Settings[3], "lblCostNotice"};

  // Format; the second icon stands on the Modem tab
  std::array<Picture, 2> Icon{{{Settings[4], "Icon", 1}, {Settings[1], "Icon", 2}}};
  Label lblCountry{Settings[4], "lblCountry"};
  Label lblRegionalSettings{Settings[4], "lblRegionalSettings"};
  Label lblPreview{Settings[4], "lblPreview"};
  Label lblShortDate{Settings[4], "lblShortDate"};
  Label lblLongDate{Settings[4], "lblLongDate"};
  Label lblDateFormat{Settings[4], "lblDateFormat"};

  // Errors
  CheckBox optShowErrors{Settings[5], "optShowErrors"};
  MaskedEdit mskNoDisconDuration{Settings[5], "mskNoDisconDuration"};
  Label Label8{Settings[5], "Label8"};
  MaskedEdit mskNoDisconData{Settings[5], "mskNoDisconData"};

  // Holidays
  Calendar CalHolidays{Settings[6], "CalHolidays"};
  Button btnAdd{Settings[6], "btnAdd"};
  Button btnRemove{Settings[6], "btnRemove"};
  ListBox lstHolidays{Settings[6], "lstHolidays"};
  Label lblUsedHolidays{Settings[6], "lblUsedHolidays"};
  Label lblPastHolidays{Settings[6], "lblPastHolidays"};  // those that saving takes out of the settings

  // Report
  std::array<OptionButton, 2> optFormat{{{Settings[7], "optFormat", 0}, {Settings[7], "optFormat", 1}}};
  CheckBox chkAMPM{Settings[7], "chkAMPM"};
  ComboBox lstStartDate{Settings[7], "lstStartDate", ComboBox::Kind::PickOnly};
  Label lblWeekStart{Settings[7], "lblWeekStart"};
  ComboBox lstWeekStart{Settings[7], "lstWeekStart", ComboBox::Kind::PickOnly};
  Label lblMonthStart{Settings[7], "lblMonthStart"};
  ComboBox lstMonthStart{Settings[7], "lstMonthStart", ComboBox::Kind::PickOnly};
  Label lblUserDate{Settings[7], "lblUserDate"};
  MaskedEdit mskUserDate{Settings[7], "mskUserDate"};

  Button btnDefaults{*this, "btnDefaults"};  // of the Modem tab
  Button btnSave{*this, "btnSave"};
  Button btnCancel{*this, "btnCancel"};

  // Notices to the main window: options were changed that it shows or starts with; the default log is
  // another.
  bool OptionsChanged = false, LogPathChanged = false;

 private:
  // A limit that is a whole number of its setting's width.
  struct LimitField {
    TextBox& Field;
    std::variant<Int16*, Int32*> Limit;
    RuledField Rule{Field, {.TestsTyping = false, .WhenLeft = Leaving::PutsBack, .Mask = ""}};
    std::string Shown() const;
  };
  struct OptionBox {
    CheckBox& Box;
    Option& Setting;
  };
  // A text by which lines of the log are recognised, in capitals.
  struct MarkerField {
    TextBox& Field;
    std::string& Marker;
  };
  struct CostField {
    TextBox& Field;
    Label& Caption;
    double& Cost;
    RuledField Rule{Field, {.TestsTyping = false, .WhenLeft = Leaving::Insists, .Filler = ""}};
  };
  // What a starting date preference needs besides.
  struct StartField {
    const char* Preference;
    Control& Field;
    Label& Caption;
  };

  void Form_Load() override;
  void Form_Activate() override;
  bool Form_Unload() override;
  void Form_KeyDown(KeyPress& press);
  void TabStrip1_Click();
  void btnSave_Click();
  void restoreOldValues();

  void WireGeneral();
  void ShowGeneral();
  void ShowLogPath(const std::string& path);
  std::string TypedLogPath() const;
  void txtLogName_LostFocus();
  void cmdBrowse_Click();
  void WarnOfOtherFolder() const;
  void TakeLimit(const LimitField& limit, const std::string& typed);

  void WireModem();
  void ShowMarkers();
  void btnDefaults_Click();

  void WireCosts();
  void ShowCosts();
  void optCalcCosts_Click();

  void WireErrors();
  void optShowErrors_Click();
  void mskNoDisconDuration_LostFocus();

  void ShowFormats();
  void Icon_Click(int index);

  void WireServices();
  void ShowServiceNotice();
  void ShowServices();
  int SelectedService() const { return lstServices.SelectedRow() - 1; }
  void AddServiceRow(int service);
  void SelectRow(int row);
  void ShowServiceCount();
  void EnableEditing();
  bool EditService(int service, bool isNew);
  void btnNew_Click();
  void lstServices_DblClick();
  void lstServices_ItemClick();
  void btnDelete_Click();
  void DeleteService();
  void btnCopy_Click();
  void CopyService(int index);
  void CheckCopybtn();
  void btnScan_Click();

  void WireHolidays();
  void LoadHolidays();
  void ShowPastHolidays(int past);
  void ShowHolidays(int chosen);
  void ShowHolidayCount();
  void AddHoliday();
  void btnAdd_Click();
  void btnRemove_Click();
  void lstHolidays_Click();
  void StoreHolidays();

  void WireReport();
  void ShowReportSettings();
  void EnableStartFields();
  void mskUserDate_LostFocus();

  qel::Settings edited = settings;  // the copy; taken anew as the window is loaded
  bool saved = false;
  bool regionalSettingsOpened = false;
  bool durationValid = false;
  std::string deletionNotice;  // once a deletion has moved costs from one service to another
  std::string logPathAtLoad;
  std::string shownLogPath;    // whose text the window put into txtLogName
  std::vector<Date> holidays;  // the window's own; Holidays is touched by saving alone

  std::array<LimitField, 4> limits{{{txtMaxServices, &edited.MaxServices},
                                    {txtMaxConnections, &edited.MaxConnections},
                                    {txtMaxConnectDays, &edited.MaxConnectDays},
                                    {txtMaxLogSize, &edited.MaxLogSize}}};
  const std::array<OptionBox, 7> options{{{optEditLog, edited.EditLog},
                                          {optShowToolbars, edited.ShowToolbars},
                                          {optFlatToolBars, edited.FlatToolbars},
                                          {optModemCheck, edited.ModemCheck},
                                          {optTips, edited.Tips},
                                          {optAutoOpt, edited.AutoOptimize},
                                          {optShowGraphic, edited.ShowGraphic}}};
  const std::array<MarkerField, 7> markers{{{TextOptDial, edited.ModemDial},
                                            {TextOptAnswer, edited.ModemAnswer},
                                            {TextOptConnect, edited.ModemConnect},
                                            {TextOptUsrDisconnect, edited.ModemUserDisconnect},
                                            {TextOptRemDisconnect, edited.ModemHostDisconnect},
                                            {TextOptReads, edited.ModemReads},
                                            {TextOptWrites, edited.ModemWrites}}};
  std::array<CostField, 3> costs{{{txtDialCost, lblDialCost, edited.DialCost},
                                  {txtCostPerHour, lblCostPerHour, edited.CostPerHour},
                                  {txtCostPerMeg, lblCostPerMeg, edited.CostPerMeg}}};
  RuledField noDisconData{mskNoDisconData,
                          {.TestsTyping = false, .WhenLeft = Leaving::PutsBack, .Mask = "#,##0"}};
  const std::array<StartField, 3> startFields{{{"Start of Week", lstWeekStart, lblWeekStart},
                                               {"Start of Month", lstMonthStart, lblMonthStart},
                                               {"User Defined", mskUserDate, lblUserDate}}};
};

}  // namespace qel
