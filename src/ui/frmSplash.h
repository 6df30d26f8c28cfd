// The first window of the program: a picture, and a line that tells what the start is doing.
#pragma once

#include "controls/Buttons.h"
#include "controls/Form.h"
#include "controls/TextControls.h"
#include "core/Display.h"

namespace qel {

class frmSplash : public Form, public Display {
 public:
  frmSplash();

  Picture Picture1{*this, "Picture1"};
  Label LabelVersion{*this, "LabelVersion"};
  Label SplashLabel1{*this, "SplashLabel1"};
  Timer SplashTimer1{*this, "SplashTimer1", 1000};
  Timer SplashTimer2{*this, "SplashTimer2", 500};

 private:
};

extern TheForm<frmSplash> SplashForm;

}  // namespace qel
