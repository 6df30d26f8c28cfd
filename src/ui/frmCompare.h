// What the calls of each service of the report would have cost by the costs of every other one.
#pragma once

#include <string>
#include <vector>

#include "controls/Buttons.h"
#include "controls/DrawingView.h"
#include "controls/ListView.h"
#include "controls/TextControls.h"
#include "reports/TariffComparison.h"
#include "ui/Windows.h"

namespace qel {

class frmCompare : public Window {
 public:
  explicit frmCompare(Windows& owner);

  Label lblPeriod{*this, "lblPeriod"};
  ListView lstOffers{*this, "lstOffers"};     // a row for each service and offer
  DrawingView drwOffers{*this, "drwOffers"};  // of the service of the row that is selected
  Button btnCalls{*this, "btnCalls", [this] { ShowCalls(); }};
  Button btnClose{*this, "btnClose", [this] { Unload(); }};

  // Compares by the latest analysis, whose report is shown, and returns when the window is closed; the report
  // then shows the calls that the user asked for. Says why where there is nothing to compare.
  void ShowComparison();

 private:
  void FillOffers();
  const ServiceComparison* Selected() const;
  void DrawSelected();
  void ShowCalls();

  std::vector<ServiceComparison> services;
  const ServiceComparison* drawn = nullptr;  // of the row that is selected
  int wanted = 0;                            // the connection to show in the report; 0 for none
};

}  // namespace qel
