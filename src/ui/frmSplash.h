// The first window of the program: a picture, and a line that tells what the start is doing.
#pragma once

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "core/Display.h"
#include "ui/Windows.h"

namespace qel {

class frmSplash : public Window, public Display {
 public:
  explicit frmSplash(Windows& owner);

  // What the program does on its way up, while this window shows it.
  Event<> Main;
  bool PauseOnSplash = false;  // no log was found: the window waits for a click

  // Lets SplashLabel1 blink and waits.
  void WaitForClick();
  // Opens the main window in place of this one.
  void HandOver();

  Picture Picture1{*this, "Picture1", [this] { EndPause(); }};
  Label LabelVersion{*this, "LabelVersion"};
  Label SplashLabel1{*this, "SplashLabel1", [this] { EndPause(); }};
  Timer SplashTimer1{*this, "SplashTimer1", 1000, [this] { SplashLabel1.Visible = !SplashLabel1.Visible; }};
  Timer SplashTimer2{*this, "SplashTimer2", 500};

 private:
  void Form_Load() override;
  void SplashText(const std::string& text) override { SplashLabel1.Caption = text; }
  void EndPause();
};

}  // namespace qel
