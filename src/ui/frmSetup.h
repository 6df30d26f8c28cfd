// The options window: every setting of the program, the services and the holidays. Its tabs edit a copy of
// the settings, which saving puts in their place.
#pragma once

#include "ui/SetupTabs.h"

namespace qel {

class frmSetup : public Window {
 public:
  explicit frmSetup(Windows& owner);

 private:
  qel::Settings edited = settings;  // the copy; taken anew as the window is loaded
  bool saved = false;

 public:
  TabStrip TabStrip1{*this, "TabStrip1"};
  std::array<Frame, 8> Settings{{{*this, "Settings", 0},
                                 {*this, "Settings", 1},
                                 {*this, "Settings", 2},
                                 {*this, "Settings", 3},
                                 {*this, "Settings", 4},
                                 {*this, "Settings", 5},
                                 {*this, "Settings", 6},
                                 {*this, "Settings", 7}}};
  // The tab key goes from one to the next.
  SetupGeneral General{{Settings[0], windows, edited}};
  SetupModem Modem{{Settings[1], windows, edited}};
  SetupServices Services{{Settings[2], windows, edited}};
  SetupCosts Costs{{Settings[3], windows, edited}};
  SetupFormat Format{{Settings[4], windows, edited}, Settings[1]};
  SetupErrors Errors{{Settings[5], windows, edited}};
  SetupHolidays Holidays{{Settings[6], windows, edited}};
  SetupReport Report{{Settings[7], windows, edited}};
  Button btnDefaults{*this, "btnDefaults"};  // of the Modem tab
  Button btnSave{*this, "btnSave", [this] { btnSave_Click(); }};
  Button btnCancel{*this, "btnCancel", [this] { Unload(); }};

  // Notices to the main window: options were changed that it shows or starts with; the default log is
  // another.
  bool OptionsChanged = false, LogPathChanged = false;

 private:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_Unload() override;
  void Form_KeyDown(KeyPress& press);
  void TabStrip1_Click();
  void btnSave_Click();
  void restoreOldValues();
};

}  // namespace qel
