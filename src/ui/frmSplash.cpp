#include "ui/frmSplash.h"

#include <cmath>

#include "core/Surroundings.h"
#include "core/Version.h"
#include "ui/HelpNumbers.h"
#include "ui/frmMain.h"

namespace qel {

frmSplash::frmSplash(Windows& owner) : Window("frmSplash", owner) {
  HelpContextID = HelpAbout;
  SplashTimer1.Enabled = false;
  KeyDown = [this](KeyPress&) { EndPause(); };
}

void frmSplash::Form_Load() {
  SetTrace("frmSplash", "Form_Load");
  Picture1.Left = Picture1.Top = 0;
  Width = Picture1.Width;
  Height = Picture1.Height;
  const auto place = [this](Label& label, double factor) {
    label.Top = static_cast<int>(std::lround(factor * (Picture1.Height - label.Height)));
    label.Left = static_cast<int>(std::lround(factor * (Picture1.Width - label.Width)));
  };
  place(SplashLabel1, 0.5);
  place(LabelVersion, 0.89);
  LabelVersion.Caption = "Version " + std::to_string(VersionMajor) + "." + std::to_string(VersionMinor);
  Show();
  CurrentHost().Paint();
  Main();
}

void frmSplash::WaitForClick() {
  SplashTimer1.Enabled = true;
  SplashLabel1.Caption = "Click to continue...";
}

void frmSplash::EndPause() {
  if (PauseOnSplash) HandOver();
}

void frmSplash::HandOver() {
  SplashTimer1.Enabled = false;
  Hide();  // nothing that the main window has to say stands beside it
  windows.MainForm->Show();
  Unload();
}

}  // namespace qel
