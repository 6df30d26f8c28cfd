// How one connection of the Details report was priced, and the way to the connections beside it.
#pragma once

#include <optional>
#include <string>

#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "reports/ReportOf.h"
#include "ui/Windows.h"

namespace qel {

class frmPrice : public Window {
 public:
  explicit frmPrice(Windows& owner);

  Document docPrice{*this, "docPrice"};
  Button btnPrevious{*this, "btnPrevious", [this] { GoTo(previous); }};
  Button btnNext{*this, "btnNext", [this] { GoTo(next); }};
  Button btnCopy{*this, "btnCopy", [this] { btnCopy_Click(); }};
  Button btnPrint{*this, "btnPrint", [this] { btnPrint_Click(); }};
  Button btnClose{*this, "btnClose", [this] { Unload(); }};

  // Shows the connection of this number in the report, whose parts must outlive the window, and returns when
  // the window is closed.
  void ShowPrice(const ReportOf& report, int connection);

 private:
  void GoTo(int connection);
  std::string Text();
  void btnCopy_Click();
  void btnPrint_Click();

  std::optional<ReportOf> of;
  int shown = 0, previous = 0, next = 0;  // numbers of connections; 0 for none
};

}  // namespace qel
