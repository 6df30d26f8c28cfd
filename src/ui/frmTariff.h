// One time segment of a dial-up charge: on which days and between which times it holds, and what it costs.
// The window edits an entry of the service editor's working copy of the tariffs.
#pragma once

#include <string>

#include "controls/Buttons.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "ui/FieldRule.h"
#include "ui/Windows.h"
#include "values/Region.h"

namespace qel {

class frmTariff : public Window {
 public:
  explicit frmTariff(Windows& owner);

  ComboBox lstDialTimeTariffDescrip{*this, "lstDialTimeTariffDescrip", ComboBox::Kind::Editable};
  ComboBox lstDialTimeTariffDialDays{*this, "lstDialTimeTariffDialDays", ComboBox::Kind::PickOnly};
  ComboBox lstDialTimeTariffDialStart{*this, "lstDialTimeTariffDialStart", ComboBox::Kind::PickOnly};
  Label lblDialTimeTariff7{*this, "lblDialTimeTariff7"};
  ComboBox lstDialTimeTariffDialEnd{*this, "lstDialTimeTariffDialEnd", ComboBox::Kind::PickOnly};
  Label lblAssist{*this, "lblAssist"};
  TextBox txtDialTimeTariffDialRate{*this, "txtDialTimeTariffDialRate"};
  TextBox txtDialTimeTariffMinuteRate{*this, "txtDialTimeTariffMinuteRate"};
  ComboBox lstDialTimeTariffUnit{*this, "lstDialTimeTariffUnit", ComboBox::Kind::PickOnly};
  Label lblDialTimeTariff4{*this, "lblDialTimeTariff4"};
  TextBox txtDialTimeTariffAfterMins{*this, "txtDialTimeTariffAfterMins"};
  Label lblDialTimeTariff5{*this, "lblDialTimeTariff5"};
  TextBox txtDialTimeTariffAfterSecs{*this, "txtDialTimeTariffAfterSecs"};
  Label lblDialTimeTariff6{*this, "lblDialTimeTariff6"};
  Label lblDialTimeTariff9{*this, "lblDialTimeTariff9"};
  TextBox txtDialTimeTariffUnitMins{*this, "txtDialTimeTariffUnitMins"};
  Label lblDialTimeTariff11{*this, "lblDialTimeTariff11"};
  TextBox txtDialTimeTariffUnitSecs{*this, "txtDialTimeTariffUnitSecs"};
  Label lblDialTimeTariff12{*this, "lblDialTimeTariff12"};
  Label lblOKNotice{*this, "lblOKNotice"};  // why the tariff cannot be confirmed yet
  Button btnOK{*this, "btnOK", [this] { btnOK_Click(); }};
  Button btnCancel{*this, "btnCancel", [this] { Unload(); }};

  bool NewTariff = false;  // opened for a new tariff; still set when it was confirmed

 private:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_Unload() override;

  void ConnectFields();
  void ConnectLists();
  void FillComboBoxes();
  void LoadNewTariff();
  void LoadTariff();
  void ShowDays(const std::string& stored);
  std::string EnteredDays() const;

  void lstDialTimeTariffDialStart_Click();
  void lstDialTimeTariffDialEnd_Click();
  void TimeList_GotFocus(ComboBox& list);
  void TimeList_LostFocus();
  void Assist(const ComboBox& list);
  Date TimeIn(const ComboBox& list) const;

  void ChargeIntervalRule();
  void CheckOKBtn();
  std::string Missing() const;

  Int16 TariffExists(const std::string& name, Int16 count) const;
  TariffRecord EnteredTariff() const;
  void WriteTariff();
  void btnOK_Click();

  Int16 TariffNumber;      // of the working copy's entry, from 1
  std::string storedDays;  // of that entry, in the words in which they were written
  bool Confirmed = false;

  // An amount of the rate may be begun with a point in every region, one of the cost per call with the
  // regional symbol.
  static inline const std::string Point = ".";
  RuledField DialRate{txtDialTimeTariffDialRate,
                      {.Unfinished = &Region.NumberDecimal, .WhenLeft = Leaving::Resets}};
  RuledField MinuteRate{txtDialTimeTariffMinuteRate, {.Unfinished = &Point, .WhenLeft = Leaving::Resets}};
  RuledField AfterMins{txtDialTimeTariffAfterMins, {.Most = 999, .Mask = "##0"}};
  RuledField AfterSecs{txtDialTimeTariffAfterSecs, {.Most = 60, .Mask = "#0"}};
  RuledField UnitMins{
      txtDialTimeTariffUnitMins,
      {.Least = 1, .Most = 999, .WhenEmptied = Emptied::Invalidates, .Filler = "15", .Mask = "##0"}};
  RuledField UnitSecs{txtDialTimeTariffUnitSecs, {.Most = 60, .Mask = "#0"}};
};

}  // namespace qel
