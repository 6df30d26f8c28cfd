// The tabs of the options window. A tab shows the settings when the window is loaded, and changes them as its
// fields are left.
#pragma once

#include <array>
#include <functional>
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

struct SetupTab {
  Frame& Page;  // where its controls stand
  Windows& windows;
  Settings& edited;  // the window's copy of the settings
};

class SetupGeneral : SetupTab {
 public:
  explicit SetupGeneral(const SetupTab& tab);
  void Show();

  TextBox txtLogName{Page, "txtLogName"};
  Button cmdBrowse{Page, "cmdBrowse", [this] { cmdBrowse_Click(); }};
  TextBox txtMaxServices{Page, "txtMaxServices"};
  TextBox txtMaxConnections{Page, "txtMaxConnections"};
  TextBox txtMaxConnectDays{Page, "txtMaxConnectDays"};
  TextBox txtMaxLogSize{Page, "txtMaxLogSize"};
  CheckBox optEditLog{Page, "optEditLog"};
  CheckBox optShowToolbars{Page, "optShowToolbars"};
  CheckBox optFlatToolBars{Page, "optFlatToolBars"};
  CheckBox optModemCheck{Page, "optModemCheck"};
  CheckBox optTips{Page, "optTips"};
  CheckBox optAutoOpt{Page, "optAutoOpt"};
  CheckBox optShowGraphic{Page, "optShowGraphic"};

  std::function<void()> MaxServicesTaken;  // there is more or less room for services

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

  void ShowLogPath(const std::string& path);
  std::string TypedLogPath() const;
  void txtLogName_LostFocus();
  void cmdBrowse_Click();
  void WarnOfOtherFolder() const;
  void TakeLimit(const LimitField& limit, const std::string& typed);

  std::string logPathAtLoad;
  std::string shownLogPath;  // whose text the tab put into txtLogName

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
};

class SetupModem : SetupTab {
 public:
  explicit SetupModem(const SetupTab& tab);
  void Show();
  void btnDefaults_Click();

  TextBox TextOptDial{Page, "TextOptDial"};
  TextBox TextOptAnswer{Page, "TextOptAnswer"};
  TextBox TextOptConnect{Page, "TextOptConnect"};
  TextBox TextOptUsrDisconnect{Page, "TextOptUsrDisconnect"};
  TextBox TextOptRemDisconnect{Page, "TextOptRemDisconnect"};
  TextBox TextOptReads{Page, "TextOptReads"};
  TextBox TextOptWrites{Page, "TextOptWrites"};
  Button btnFromLog{Page, "btnFromLog"};

 private:
  // A text by which lines of the log are recognised, in capitals.
  struct MarkerField {
    TextBox& Field;
    std::string& Marker;
  };
  const std::array<MarkerField, 7> markers{{{TextOptDial, edited.ModemDial},
                                            {TextOptAnswer, edited.ModemAnswer},
                                            {TextOptConnect, edited.ModemConnect},
                                            {TextOptUsrDisconnect, edited.ModemUserDisconnect},
                                            {TextOptRemDisconnect, edited.ModemHostDisconnect},
                                            {TextOptReads, edited.ModemReads},
                                            {TextOptWrites, edited.ModemWrites}}};

  void btnFromLog_Click();
};

class SetupServices : SetupTab {
 public:
  explicit SetupServices(const SetupTab& tab);
  void Show();
  void ShowServiceCount();
  void DeleteService();

  Frame fralblServices{Page.Parent(), "fralblServices"};  // over the tab
  Label lblServices{fralblServices, "lblServices"};
  ListView lstServices{Page, "lstServices"};
  Button btnNew{Page, "btnNew", [this] { btnNew_Click(); }};
  Button btnEdit{Page, "btnEdit"};
  Button btnDelete{Page, "btnDelete", [this] { btnDelete_Click(); }};
  Button btnCopy{Page, "btnCopy", [this] { btnCopy_Click(); }};
  Button btnScan{Page, "btnScan", [this] { btnScan_Click(); }};
  ProgressBar ProgressBar1{Page, "ProgressBar1"};
  Label lblServiceNotice{Page, "lblServiceNotice"};  // what the costs of the services may surprise with

 private:
  int SelectedService() const { return lstServices.SelectedRow() - 1; }
  void ShowServiceNotice();
  void AddServiceRow(int service);
  void SelectRow(int row);
  void EnableEditing();
  bool EditService(int service, bool isNew);
  void btnNew_Click();
  void lstServices_DblClick();
  void lstServices_ItemClick();
  void btnDelete_Click();
  void btnCopy_Click();
  void CopyService(int index);
  void CheckCopybtn();
  void btnScan_Click();

  std::string deletionNotice;  // once a deletion has moved costs from one service to another
};

class SetupCosts : SetupTab {
 public:
  explicit SetupCosts(const SetupTab& tab);
  void Show();

  CheckBox optCalcCosts{Page, "optCalcCosts", [this] { optCalcCosts_Click(); }};
  Label lblDialCost{Page, "lblDialCost"};
  TextBox txtDialCost{Page, "txtDialCost"};
  Label lblCostPerHour{Page, "lblCostPerHour"};
  TextBox txtCostPerHour{Page, "txtCostPerHour"};
  Label lblCostPerMeg{Page, "lblCostPerMeg"};
  TextBox txtCostPerMeg{Page, "txtCostPerMeg"};
  Label lblCostNotice{Page, "lblCostNotice"};

 private:
  struct CostField {
    TextBox& Field;
    Label& Caption;
    double& Cost;
    RuledField Rule{Field, {.TestsTyping = false, .WhenLeft = Leaving::Insists, .Filler = ""}};
  };

  void optCalcCosts_Click();

  std::array<CostField, 3> costs{{{txtDialCost, lblDialCost, edited.DialCost},
                                  {txtCostPerHour, lblCostPerHour, edited.CostPerHour},
                                  {txtCostPerMeg, lblCostPerMeg, edited.CostPerMeg}}};
};

// Examples of the regional formats, and the ways to the system's own settings.
class SetupFormat : SetupTab {
 public:
  SetupFormat(const SetupTab& tab, Frame& modemPage);
  void Show();

  bool RegionalSettingsOpened = false;

  std::array<Picture, 2> Icon;
  Label lblCountry{Page, "lblCountry"};
  Label lblRegionalSettings{Page, "lblRegionalSettings"};
  Label lblPreview{Page, "lblPreview"};
  Label lblShortDate{Page, "lblShortDate"};
  Label lblLongDate{Page, "lblLongDate"};
  Label lblDateFormat{Page, "lblDateFormat"};

 private:
  void Icon_Click(int index);
};

class SetupErrors : SetupTab {
 public:
  explicit SetupErrors(const SetupTab& tab);
  void Show();

  CheckBox optShowErrors{Page, "optShowErrors", [this] { optShowErrors_Click(); }};
  MaskedEdit mskNoDisconDuration{Page, "mskNoDisconDuration"};
  Label Label8{Page, "Label8"};
  MaskedEdit mskNoDisconData{Page, "mskNoDisconData"};

 private:
  void optShowErrors_Click();
  void mskNoDisconDuration_LostFocus();

  bool durationValid = false;
  RuledField noDisconData{mskNoDisconData,
                          {.TestsTyping = false, .WhenLeft = Leaving::PutsBack, .Mask = "#,##0"}};
};

// In the order of their dates. Days gone by are not kept.
class SetupHolidays : SetupTab {
 public:
  explicit SetupHolidays(const SetupTab& tab);
  void Show();
  void Store() const;

  Calendar CalHolidays{Page, "CalHolidays"};
  Button btnAdd{Page, "btnAdd", [this] { btnAdd_Click(); }};
  Button btnRemove{Page, "btnRemove"};
  ListBox lstHolidays{Page, "lstHolidays"};
  Label lblUsedHolidays{Page, "lblUsedHolidays"};
  Label lblPastHolidays{Page, "lblPastHolidays"};  // those that saving takes out of the settings

 private:
  void ShowPastHolidays(int past);
  void ShowHolidays(int chosen);
  void AddHoliday();
  void btnAdd_Click();
  void btnRemove_Click();
  void lstHolidays_Click();

  std::vector<Date> holidays;
};

// The format of reports, and the day on which they begin.
class SetupReport : SetupTab {
 public:
  explicit SetupReport(const SetupTab& tab);
  void Show();
  void EnableStartFields();

  std::array<OptionButton, 2> optFormat{{{Page, "optFormat", 0}, {Page, "optFormat", 1}}};
  CheckBox chkAMPM{Page, "chkAMPM"};
  ComboBox lstStartDate{Page, "lstStartDate", ComboBox::Kind::PickOnly};
  Label lblWeekStart{Page, "lblWeekStart"};
  ComboBox lstWeekStart{Page, "lstWeekStart", ComboBox::Kind::PickOnly};
  Label lblMonthStart{Page, "lblMonthStart"};
  ComboBox lstMonthStart{Page, "lstMonthStart", ComboBox::Kind::PickOnly};
  Label lblUserDate{Page, "lblUserDate"};
  MaskedEdit mskUserDate{Page, "mskUserDate"};

 private:
  // What a starting date preference needs besides.
  struct StartField {
    const char* Preference;
    Control& Field;
    Label& Caption;
  };

  void mskUserDate_LostFocus();

  const std::array<StartField, 3> startFields{{{"Start of Week", lstWeekStart, lblWeekStart},
                                               {"Start of Month", lstMonthStart, lblMonthStart},
                                               {"User Defined", mskUserDate, lblUserDate}}};
};

}  // namespace qel
