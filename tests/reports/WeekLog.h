// A fixture with a log and its settings from inputs/, of which paths tell the same everywhere. At first it is
// the week's, for the three days of which it tells.
#pragma once

#include <sstream>

#include "modemlog/LogFile.h"
#include "settings/UserParameters.h"
#include "support/FreshProgram.h"

namespace qel {

class WeekLog : public FreshProgram {
 protected:
  WeekLog() {
    std::filesystem::current_path(QEL_SOURCE_DIR "/tests/reports");
    Open("week");
    SetPeriod(DateSerial(1999, 3, 1), DateSerial(1999, 3, 3));
  }
  ~WeekLog() override { std::filesystem::current_path("/"); }

  // `changes` are of the settings: "Costs CalcCosts="False"; International sDecimal=","".
  void Open(const std::string& name, const std::string& changes = "") {
    std::string file = ReadWholeFile("inputs/" + name + ".reg");
    std::istringstream words(changes);
    for (std::string key, value; words >> key && std::getline(words >> std::ws, value, ';');) {
      const bool region = key == "International";
      file += region ? "\n[HKEY_CURRENT_USER\\Control Panel\\" : "\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\QEL\\";
      file += key + "]\n\"" + value.insert(value.find('='), "\"") + "\n";
    }
    folder.Put("settings.reg", file);
    store.Open(folder.Path("settings.reg"), RegistryStore::Access::ReadOnly);
    Region = GetCurrencySymbolInfo(store);
    ReadUserParameters(store, settings, windowSettings);
    FillMissingSettings(settings, windowSettings);
    session->SetCurrentLog("inputs/", name + ".log");
    findings.LogExists = logFile.ArchiveOpen = true;
    session->Examine(LogHealth::Sound);
  }
};

}  // namespace qel
