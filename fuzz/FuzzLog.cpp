// Any bytes as a modem log: statistics, analysis and both reports must come to an end without a crash.

#include <cstddef>
#include <cstdint>
#include <string>
#include <unistd.h>

#include "analysis/QELAnalyse.h"
#include "analysis/ReportPeriod.h"
#include "core/CurrencyFormat.h"
#include "core/EndProgram.h"
#include "core/GeneralFunctions.h"
#include "core/ProgramState.h"
#include "modemlog/LogStatistics.h"
#include "platform/Files.h"
#include "reports/DetailReport.h"
#include "reports/SummaryReport.h"
#include "settings/Settings.h"

namespace {

void SetUp() {
  using namespace qel;
  ResetSettings();
  GetCurrencySymbolInfo();
  BuildDateMask();
  BuildDayNames();
  FillMissingSettings();
  Services.Make(MaxServices);
  ServiceRecord& service = Services[0];
  service.ServiceNumber = "5551234";
  service.DialOption = 2;
  service.UsedTariffs = 1;
  service.Tariffs[0].AppliesDays = "Mon - Fri";
  service.Tariffs[0].AppliesTimeEnd = TimeSerial(23, 59, 0);
  service.Tariffs[0].Unit = "Per Unit";
  service.Tariffs[0].UnitMins = 1;
  service.Tariffs[0].PerMinuteRate = 0.05;
  UsedServices = 1;
}

void Report(const std::string& path) {
  using namespace qel;
  CurrentLogPath = path;
  LogExists = ArchiveOpen = true;
  LogCorrupt = false;
  GetLogStats(false);
  if (LogEmpty || LogInvalid) return;
  PeriodFields fields;
  fields.SetStarting(format_date(FirstEntryDate));
  fields.SetEnding(format_date(LastEntryDate));
  if (!checkProcess()) return;
  Analyse();
  DisplaySummaryReport();
  DisplayDetailReport();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = "/tmp/qel-fuzz-" + std::to_string(getpid()) + ".log";
  SetUp();
  {
    qel::FileWriter file(path);
    file.Write({reinterpret_cast<const char*>(data), size});
    file.Close();
  }
  try {
    Report(path);
  } catch (const qel::ProgramEnd&) {  // an error that nobody is there to answer
  } catch (const qel::RunTimeError&) {
  }
  return 0;
}
