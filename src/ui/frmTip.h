// The tip of the day: one line of a file of tips, which go round from one run to the next.
#pragma once

#include <string>
#include <vector>

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "ui/Windows.h"

namespace qel {

class frmTip : public Window {
 public:
  explicit frmTip(Windows& owner);

  Picture Picture1{*this, "Picture1"};
  Label Label1{*this, "Label1"};
  Label lblTipText{*this, "lblTipText"};
  Button cmdOK{*this, "cmdOK", [this] { Unload(); }};
  Button cmdNextTip{*this, "cmdNextTip", [this] { ShowNextTip(); }};
  Button btnPrevious{*this, "btnPrevious", [this] { ShowPreviousTip(); }};
  Button btnReadme{*this, "btnReadme", [this] { btnReadme_Click(); }};
  Button Command1{*this, "Command1"};
  CheckBox chkLoadTipsAtStartup{*this, "chkLoadTipsAtStartup"};

 private:
  void Form_Load() override;
  bool Form_Unload() override;
  // False where there is no such file. Raises the disk's errors.
  bool LoadTips(const std::string& fileName);
  void DisplayCurrentTip();
  void ShowNextTip();
  void ShowPreviousTip();
  void chkLoadTipsAtStartup_Click();
  void btnReadme_Click();
  Int32 TipCount() const { return Int32(tips.size()); }

  std::vector<std::string> tips;
  Int32 currentTip;  // counted from 1
};

}  // namespace qel
