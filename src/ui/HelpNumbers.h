// The topics of the help that the windows ask for, by their numbers in the help file. Those of the options
// window's tabs stand with the tabs.
#pragma once

namespace qel {

enum HelpContext {
  HelpModemWizard = 7,
  HelpTips = 8,
  HelpAbout = 9,
  HelpMainWindow = 10,
  HelpReportWindow = 20,
  HelpPrice = 25,
  HelpCompare = 26,
  HelpService = 60,  // the first tab; the others follow
  HelpTariff = 64,
  HelpLogViewer = 80,
  HelpFind = 81,
  HelpRepair = 82,
  HelpPurge = 83,
  HelpUsingHelp = 99,
};

}  // namespace qel
