// Which days are to go out of the log: up to a day, from a day to a day, or from a day on.
#pragma once

#include <array>

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "ui/Windows.h"

namespace qel {

class frmPurge : public Window {
 public:
  explicit frmPurge(Windows& owner);

  std::array<OptionButton, 3> optPurge{
      {{*this, "optPurge", 1}, {*this, "optPurge", 2}, {*this, "optPurge", 3}}};
  std::array<Frame, 3> FraPurge{{{*this, "FraPurge", 1}, {*this, "FraPurge", 2}, {*this, "FraPurge", 3}}};
  MaskedEdit MaskEdBox1{*this, "MaskEdBox1"};
  std::array<MaskedEdit, 2> MaskEdBox2{{{*this, "MaskEdBox2", 0}, {*this, "MaskEdBox2", 1}}};
  MaskedEdit MaskEdBox3{*this, "MaskEdBox3"};
  Button btnOK{*this, "btnOK", [this] { btnOK_Click(); }};
  Button btnCancel{*this, "btnCancel", [this] { Unload(); }};

  // The log was rewritten, or should have been: its statistics are to be read again.
  bool LogChanged = false;

 private:
  enum class End { From, To };

  // One end of the range, its field for each option, and whether the field makes it valid.
  struct Field {
    MaskedEdit& Input;
    int Option;
    End Which;
  };

  void Form_Load() override;
  void optPurge_Click(int option);
  void Field_Change(Field& field);
  void ReadField(Field& field);
  Date adjustDate(Date date, End which);
  void CheckOK();
  bool ProceedWithPurge() const;
  void btnOK_Click();

  Date PurgeFrom = 0, PurgeTo = 0;
  bool FromValid = false, ToValid = false;
  Int16 ChosenOption;
  std::array<Field, 4> fields{{{MaskEdBox1, 1, End::To},
                               {MaskEdBox2[0], 2, End::From},
                               {MaskEdBox2[1], 2, End::To},
                               {MaskEdBox3, 3, End::From}}};
};

}  // namespace qel
