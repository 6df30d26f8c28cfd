// The topics of the help that the program itself asks for, by their numbers in the help file. The tabs of the
// options window, which have numbers of their own, are told in its file.
#pragma once

namespace qel {

enum HelpContext {
  HelpModemLog = 6,  // how to have the system write a log
  HelpAbout = 9,
  HelpMainWindow = 10,
  HelpReportWindow = 20,
  HelpLogViewer = 80,
  HelpFind = 81,
  HelpRepair = 82,
  HelpPurge = 83,
  HelpUsingHelp = 99,
};

}  // namespace qel
