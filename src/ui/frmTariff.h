// One time segment of a dial-up charge: on which days and between which times it holds, and what it costs.
// The window edits an entry of the service editor's working copy of the tariffs.
#pragma once

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "ui/FieldRule.h"

namespace qel {

class frmTariff : public Form {
 public:
  frmTariff();

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
  Button btnOK{*this, "btnOK"};
  Button btnCancel{*this, "btnCancel"};
};

extern TheForm<frmTariff> TariffForm;

}  // namespace qel
