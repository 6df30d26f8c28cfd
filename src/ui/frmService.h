// The service editor: how a service is recognised, what dialling it and being on line with it costs, and
// which warning it raises. The record is written on OK alone.
#pragma once

#include <array>
#include <deque>
#include <string>
#include <vector>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "controls/Timetable.h"
#include "ui/FieldRule.h"
#include "ui/Windows.h"

namespace qel {

class frmService : public Window {
 public:
  explicit frmService(Windows& owner);

  TabStrip TabStrip1{*this, "TabStrip1"};
  std::array<Frame, 4> fraService{{{*this, "fraService", 0},
                                   {*this, "fraService", 1},
                                   {*this, "fraService", 2},
                                   {*this, "fraService", 3}}};

  // Service Details
  TextBox txtDescription{fraService[0], "txtDescription"};
  TextBox txtNumber{fraService[0], "txtNumber"};
  TextBox txtAltNumber{fraService[0], "txtAltNumber"};
  Picture imgService{fraService[0], "imgService"};
  std::array<Label, 2> lblNotice{{{fraService[0], "lblNotice", 0}, {fraService[0], "lblNotice", 1}}};

  // Dial-up Cost
  std::array<OptionButton, 2> optDialCost{
      {{fraService[1], "optDialCost", 0}, {fraService[1], "optDialCost", 1}}};
  Frame fraFixedTariff{fraService[1], "fraFixedTariff"};
  Label lblDialFixedTariff1{fraFixedTariff, "lblDialFixedTariff1"};
  TextBox txtDialFixedTariff{fraFixedTariff, "txtDialFixedTariff"};
  Label lblDialFixedTariff2{fraFixedTariff, "lblDialFixedTariff2"};
  Frame fraTimeTariff{fraService[1], "fraTimeTariff"};
  ListView lstDialTimeTariff{fraTimeTariff, "lstDialTimeTariff"};
  Button btnDialTimeTariffNew{fraTimeTariff, "btnDialTimeTariffNew",
                              [this] { btnDialTimeTariffNew_Click(); }};
  Button btnDialTimeTariffEdit{fraTimeTariff, "btnDialTimeTariffEdit",
                               [this] { btnDialTimeTariffEdit_Click(); }};
  Button btnDialTimeTariffDelete{fraTimeTariff, "btnDialTimeTariffDelete",
                                 [this] { btnDialTimeTariffDelete_Click(); }};
  Label lblDialTimeTariff9{fraTimeTariff, "lblDialTimeTariff9"};
  Timetable weekDialTimeTariff{fraTimeTariff, "weekDialTimeTariff"};        // which tariff has which hours
  TextBox txtDialTimeTariffNotes{fraTimeTariff, "txtDialTimeTariffNotes"};  // what is doubtful in them

  // Service Cost
  std::array<OptionButton, 2> optServiceCost{
      {{fraService[2], "optServiceCost", 0}, {fraService[2], "optServiceCost", 1}}};
  Frame fraFlatRate{fraService[2], "fraFlatRate"};
  Label lblServiceFixed1{fraFlatRate, "lblServiceFixed1"};
  TextBox txtServiceFixedRate{fraFlatRate, "txtServiceFixedRate"};
  Label lblServiceFixed2{fraFlatRate, "lblServiceFixed2"};
  Frame fraFlexiRate{fraService[2], "fraFlexiRate"};
  Label lblServiceFlex1{fraFlexiRate, "lblServiceFlex1"};
  TextBox txtServiceFlexRate{fraFlexiRate, "txtServiceFlexRate"};
  Label lblServiceFlex2{fraFlexiRate, "lblServiceFlex2"};
  TextBox txtServiceFlexHours{fraFlexiRate, "txtServiceFlexHours"};
  Label lblServiceFlex3{fraFlexiRate, "lblServiceFlex3"};
  ComboBox lstServiceFlexPeriod{fraFlexiRate, "lstServiceFlexPeriod", ComboBox::Kind::PickOnly};
  Label lblServiceFlex4{fraFlexiRate, "lblServiceFlex4"};
  TextBox txtServiceFlexRate2{fraFlexiRate, "txtServiceFlexRate2"};
  Label lblServiceFlex5{fraFlexiRate, "lblServiceFlex5"};
  Frame fraPerMeg{fraService[2], "fraPerMeg"};
  TextBox txtPerMeg{fraPerMeg, "txtPerMeg"};
  TextBox txtAfterMeg{fraPerMeg, "txtAfterMeg"};
  ComboBox lstMegPeriod{fraPerMeg, "lstMegPeriod", ComboBox::Kind::PickOnly};
  Frame fraFreePeriod{fraService[2], "fraFreePeriod"};
  CheckBox chkFreePeriod{fraFreePeriod, "chkFreePeriod", [this] { chkFreePeriod_Click(); }};
  ComboBox lstFreePeriodStart{fraFreePeriod, "lstFreePeriodStart", ComboBox::Kind::PickOnly};
  Label lblFreePeriod2{fraFreePeriod, "lblFreePeriod2"};
  ComboBox lstFreePeriodEnd{fraFreePeriod, "lstFreePeriodEnd", ComboBox::Kind::PickOnly};
  Frame fraBlock{fraService[2], "fraBlock"};
  TextBox txtServiceBlock{fraBlock, "txtServiceBlock"};
  Frame fraMaxCharge{fraService[2], "fraMaxCharge"};
  TextBox txtMaxCharge{fraMaxCharge, "txtMaxCharge"};

  // Warnings
  CheckBox chkWarnings{fraService[3], "chkWarnings", [this] { chkWarnings_Click(); }};
  std::array<OptionButton, 4> optWarning{{{fraService[3], "optWarning", 0},
                                          {fraService[3], "optWarning", 1},
                                          {fraService[3], "optWarning", 2},
                                          {fraService[3], "optWarning", 3}}};
  TextBox txtWarningHours{fraService[3], "txtWarningHours"};
  Label lblWarnHours{fraService[3], "lblWarnHours"};
  TextBox txtWarningMinutes{fraService[3], "txtWarningMinutes"};
  Label lblWarnMinutes{fraService[3], "lblWarnMinutes"};
  std::array<Label, 2> lblCurrencySymbol{
      {{fraService[3], "lblCurrencySymbol", 0}, {fraService[3], "lblCurrencySymbol", 1}}};
  TextBox txtWarndialupCost{fraService[3], "txtWarndialupCost"};
  TextBox txtWarnServiceCost{fraService[3], "txtWarnServiceCost"};
  TextBox txtWarnData{fraService[3], "txtWarnData"};
  Label lblKB{fraService[3], "lblKB"};
  CheckBox chkWarnDisplay{fraService[3], "chkWarnDisplay", [this] { chkWarnDisplay_Click(); }};
  CheckBox chkWarnSound{fraService[3], "chkWarnSound", [this] { chkWarnSound_Click(); }};
  TextBox txtWarningSound{fraService[3], "txtWarningSound"};
  Button btnWarnBrowse{fraService[3], "btnWarnBrowse", [this] { btnWarnBrowse_Click(); }};
  Button btnWarnPlay{fraService[3], "btnWarnPlay", [this] { btnWarnPlay_Click(); }};
  Label lblWarnNotes{fraService[3], "lblWarnNotes"};

  Label lblOKNotice{*this, "lblOKNotice"};  // why the service cannot be confirmed yet
  Button btnOK{*this, "btnOK", [this] { btnOK_Click(); }};
  Button btnCancel{*this, "btnCancel", [this] { Unload(); }};

  // What the window is opened for: a service of these settings, or one that does not exist yet.
  Settings* Edited = &settings;
  Int16 ServiceIndex;  // of the record in Services
  bool NewService = false;
  bool ServiceEditCancelled = true;  // how it was closed

  // The tariffs of the service being edited.
  BoundedArray<TariffRecord> TariffCopy;  // 0 to 9, the first TariffCopyCount in use
  Int16 TariffCopyCount;

 private:
  void Form_Load() override;
  void Form_Activate() override;

  // The tabs, and what their options enable
  void TabStrip1_Click();
  void optDialCost_Click(int index);
  void optServiceCost_Click(int index);
  void chkFreePeriod_Click();
  void Disable_All_Controls();
  void EnableControlGroup(const std::string& word);
  // With the colours of its state, for the kinds that show it by theirs.
  static void SetUsable(Control& control, bool usable);
  void FillComboBoxes();

  // Between the window and the record
  void LoadNewService();
  void CopyTariffs(const ServiceRecord& service);
  void ShowService(const ServiceRecord& service);
  void ShowCosts(const ServiceRecord& service);
  void ShowWarning(const ServiceRecord& service);
  void WriteService(ServiceRecord& service) const;
  void WriteServiceCost(ServiceRecord& service) const;
  void WriteWarning(ServiceRecord& service) const;
  void btnOK_Click();

  // The fields, and whether all that is needed is there
  void WireFields();
  bool Passed(const TextBox& field) const;
  void RefreshOKButton();
  bool FieldsValid() const { return Missing().empty(); }
  // What keeps the service from being confirmed, the first thing in the order of the tabs; empty when nothing
  // does.
  std::string Missing() const;
  std::string MissingDetails() const;
  std::string MissingDialCost() const;
  std::string MissingServiceCost() const;
  std::string MissingLimits() const;
  std::string MissingWarning() const;
  std::string MissingThreshold() const;

  // The tariffs
  void WireTariffs();
  void SetTariffColumns();
  void SortTariffs();
  void DisplayTariffs();
  void ShowWeek();
  void ShowTariffCount();
  void ColourTariffCount();
  void ShowTariffSummary();
  void SetTariffButtons();
  bool EditTariff(bool isNew);
  void btnDialTimeTariffNew_Click();
  void btnDialTimeTariffEdit_Click();
  void btnDialTimeTariffDelete_Click();

  // The warnings
  void WireWarnings();
  void chkWarnings_Click();
  void chkWarnDisplay_Click();
  void chkWarnSound_Click();
  void EnableSound(bool usable);
  std::string SoundPath() const;
  bool SoundExists() const;
  void btnWarnBrowse_Click();
  void btnWarnPlay_Click();
  void txtWarningSound_LostFocus();

  Int16 DialOption = 1, ServiceOption = 1, WarningOption;
  Int16 SelectedTariff;                // row of the list, from 1; 0 for none
  std::string soundTextAtFocus;        // what txtWarningSound goes back to
  std::deque<RuledField> ruledFields;  // those that take numbers

  // What belongs to each member of optWarning; the field that takes the focus comes first.
  const std::array<std::vector<Control*>, 4> thresholds{
      {{&txtWarningHours, &txtWarningMinutes, &lblWarnHours, &lblWarnMinutes},
       {&txtWarndialupCost, &lblCurrencySymbol[0]},
       {&txtWarnServiceCost, &lblCurrencySymbol[1]},
       {&txtWarnData, &lblKB}}};
};

}  // namespace qel
