#include "analysis/ResetProgram.h"

#include "analysis/AnalysisResult.h"
#include "analysis/ReportPeriod.h"
#include "core/ProgramState.h"
#include "modemlog/LogExamination.h"
#include "settings/Settings.h"

namespace qel {

void ResetProgram() {
  places = {};
  settings = {};
  windowSettings = {};
  logFile = {};
  findings = {};
  period = {};
  analysis = {};
}

}  // namespace qel
