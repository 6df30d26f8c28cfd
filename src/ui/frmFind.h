// Search in the viewer's text.
#pragma once

#include <array>
#include <string>

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/TextControls.h"
#include "values/CheckedInteger.h"

namespace qel {

// The state of the search; it survives the dialogue.
extern std::string FindText;  // the last text searched for
extern Int16 FindMatchCase;   // 1: capital and small letters differ
extern Int16 FindDirection;   // 1: down, else up
extern float FindLastPos;     // where the selection began after the last search
extern bool FindFirstTime;    // the next search does not step past the selection
void ResetFind();

class frmFind : public Form {
 public:
  frmFind();

  TextBox Text1{*this, "Text1"};
  Frame fraDirection{*this, "fraDirection"};
  std::array<OptionButton, 2> optDirection{{{*this, "optDirection", 0}, {*this, "optDirection", 1}}};
  CheckBox chkCase{*this, "chkCase"};
  Button cmdFind{*this, "cmdFind"};
  Button cmdcancel{*this, "cmdcancel"};

 private:
  void Form_Load() override;
};

extern TheForm<frmFind> FindForm;

// Searches the viewer's text for FindText from its selection on and selects what it finds; the dialogue goes
// then. Without a hit the user is told.
void DoFind();

}  // namespace qel
