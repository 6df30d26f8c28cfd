// One run of qelreport, from the settings to the report on standard output.
#pragma once

#include "cli/Arguments.h"
#include "cli/CommandLineHost.h"
#include "settings/Settings.h"

namespace qel {

enum ExitStatus : int {
  WholeReport = 0,
  NothingFound = 0,  // by a check
  NoReport = 1,
  SomethingFound = 1,
  WrongArguments = 2,
  IncompleteReport = 3
};

// Runs by the arguments and says on standard error why there is no report, if there is none. Never writes to
// the settings. `host` becomes the program's host and display and must outlive it. Throws ProgramEnd where an
// error dialogue ends the run.
ExitStatus RunReport(const Arguments& arguments, CommandLineHost& host);

// Tariffs keep their days in the words of whoever wrote them, and a run by a schedule often has no language.
// Such a tariff would change the costs without a word; this has one on standard error.
void TellUnknownDays(const Settings& settings);

}  // namespace qel
