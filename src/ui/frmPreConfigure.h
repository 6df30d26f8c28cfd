// The modem wizard: four steps from a greeting to a modem that writes the log that the program reads.
//
// Nothing is changed before the last step, which does it on its way in.
#pragma once

#include <array>

#include "controls/Buttons.h"
#include "controls/Lists.h"
#include "controls/TextControls.h"
#include "ui/Windows.h"

namespace qel {

class frmPreConfigure : public Window {
 public:
  explicit frmPreConfigure(Windows& owner);

  // One for each step.
  std::array<Frame, 4> fraCheck{
      {{*this, "fraCheck", 0}, {*this, "fraCheck", 1}, {*this, "fraCheck", 2}, {*this, "fraCheck", 3}}};

  // The greeting
  Frame fraPic{fraCheck[0], "fraPic"};
  Picture Image1{fraPic, "Image1"};
  Label RichTextBox1{fraCheck[0], "RichTextBox1"};
  Label Label2{fraCheck[0], "Label2"};

  // The choice of a modem
  Picture Image2{fraCheck[1], "Image2"};
  Label Label1{fraCheck[1], "Label1"};
  ListBox lstModems{fraCheck[1], "lstModems"};

  // What it does beside what it should do
  Label lblSelModem{fraCheck[2], "lblSelModem"};
  Frame fracurrent{fraCheck[2], "fracurrent"};
  Picture ImgCurrentLogging{fracurrent, "ImgCurrentLogging"};
  Label lblCurrentLogging{fracurrent, "lblCurrentLogging"};
  Picture imgCurrentEcho{fracurrent, "imgCurrentEcho"};
  Label lblCurrentEcho{fracurrent, "lblCurrentEcho"};
  Frame fraRec{fraCheck[2], "fraRec"};
  Picture imgRecLogging{fraRec, "imgRecLogging"};
  Label lblRecLogging{fraRec, "lblRecLogging"};
  Picture imgRecEcho{fraRec, "imgRecEcho"};
  Label lblRecEcho{fraRec, "lblRecEcho"};
  Label RichTextBox2{fraCheck[2], "RichTextBox2"};

  // The end
  Frame Frame1{fraCheck[3], "Frame1"};
  Picture Image3{Frame1, "Image3"};
  Label RichTextBox3{fraCheck[3], "RichTextBox3"};
  CheckBox Check1{fraCheck[3], "Check1"};

  Button btnNext{*this, "btnNext", [this] { btnNext_Click(); }};
  Button btnCancel{*this, "btnCancel", [this] { btnCancel_Click(); }};
  Timer Timer1{*this, "Timer1", 500, [this] { Timer1_Timer(); }};

 private:
  void Form_Load() override;
  void CheckStep();
  void CompareModem();
  void AskForChanges();
  void TellWellSetUp();
  void Finish();
  void btnNext_Click();
  void btnCancel_Click();
  void Timer1_Timer();
  void Check1_Click();

  ModemSetup& modems = session.modems;
  Int16 step;
  Int16 selectedModem;  // counted from 1; 0 before the first comparison
};

}  // namespace qel
