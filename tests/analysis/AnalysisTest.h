// A fixture for analyses of logs told in short strings, with one service whose numbers are 555 and 777,
// for a report of the 5th, a holiday, and the 6th of January 1999.
#pragma once

#include <map>
#include <optional>
#include <sstream>

#include "analysis/Analyse.h"
#include "analysis/AnalysisState.h"
#include "journeys/Script.h"
#include "platform/TextToDate.h"
#include "settings/Settings.h"
#include "support/AnsweringHost.h"
#include "support/Cases.h"
#include "support/FreshProgram.h"
#include "values/DateFormat.h"

namespace qel {

inline Date Jan(int day) { return DateSerial(1999, 1, day); }

// The time before a "-" or the end.
inline Date Clock(const std::string& text) { return TextToDate(text.substr(0, text.find('-'))); }

// From "5 10:00 D555; 5 10:00:09 C; 5 10:10 U; 6 10:10:05 R2048": day of January 1999, time, and a letter for
// the kind of line with its number.
inline std::string LogText(const std::string& shortText) {
  static const std::map<char, std::string> Begin = {
      {'D', "Recv: ATDT"}, {'A', "Answering "},           {'C', "Connection established "}, {'R', "Reads "},
      {'W', "Writes "},    {'U', "Hanging up the modem"}, {'H', "Remote modem hung up"}};
  std::istringstream words(shortText);
  std::string log, time, kind;
  for (int day; words >> day >> time && std::getline(words >> std::ws, kind, ';');)
    log += FormatDate(Jan(day) + Clock(time), "mm-dd-yyyy hh:nn:ss") + ".50 - " + Begin.at(kind[0]) +
           kind.substr(1) + "<cr>\r\n";
  return log;
}

// Of an act with such a text, or with whole lines.
inline std::string LogOf(const Act& act) {
  std::string log = LogText(act.Rest());
  for (const auto& line : act.Content) log += line + "\n";
  return log;
}

class AnalysisTest : public FreshProgram {
 protected:
  AnalysisTest() : service(AddService("Alpha", "555", "777")) {
    SetPeriod(Jan(5), Jan(6));
    settings.Holidays[0] = Jan(5);
    settings.UsedHolidays = 1;
    settings.Holidays[1] = Jan(6);  // not in use
  }

  void Run(const std::string& log) {
    OpenLog(log);
    Process();
  }

  void Process() {
    pricing.emplace(settings, period);
    ProcessLog(*pricing, logFile, findings, analysis);
  }

  // "Block 15 Rate 8" and the like; what is not named is 0.
  void Set(const std::string& text) {
    std::map<std::string, double> options;
    std::istringstream words(text);
    for (std::string name; words >> name;) words >> options[name];
    service.DialOption = 1;
    service.DialFixedTariff = options["Call"];
    service.ServiceOption = options["Option"];
    service.ServiceRate = options["Rate"];
    service.FlexRate = options["Flex"];
    service.FlexRate2 = options["Flex2"];
    service.UpToHours = options["UpTo"];
    service.PerMeg = options["PerMeg"];
    service.AfterMeg = options["PerSession"] + options["PerMonth"];
    service.MegPeriod = options["PerMonth"] > 0 ? "Month" : "Session";
    service.Block = options["Block"];
    service.MaxCharge = options["Most"];
    service.FreePeriod = options["Free"] > 0;
    settings.ModemReads = options["Totals"] > 0 ? "READS TOTAL" : "READS";
    settings.ModemWrites = options["Totals"] > 0 ? "WRITES TOTAL" : "WRITES";
    settings.NoDisconData = options["Data"];
    settings.ShowErrors = options["HideErrors"] == 0;
    period.PeriodEnd = Jan(options["To"] > 0 ? static_cast<int>(options["To"]) : 6);
    settings.MaxConnections = options["Connections"] > 0 ? options["Connections"] : 200;
    settings.MaxServices = options["Services"] > 0 ? options["Services"] : 20;
  }

  // "Day 08:00 17:59 .1 .6 Minute; Eve ...": name, times, charge per call, rate, unit, seconds spared or
  // minutes of the unit, its seconds. The name "Holidays" says the days; all others are for every day.
  void SetTariffs(const std::string& text) {
    service.DialOption = 2;
    service.UsedTariffs = 0;
    std::istringstream tariffs(text);
    for (std::string entry; std::getline(tariffs, entry, ';'); ++service.UsedTariffs) {
      TariffRecord& t = service.Tariffs[service.UsedTariffs] = {};
      std::istringstream words(entry);
      std::string start, end;
      int number = 0, seconds = 0;
      words >> t.Description >> start >> end >> t.DialRate >> t.PerMinuteRate >> t.Unit >> number >> seconds;
      t.AppliesDays = t.Description == "Holidays" ? t.Description : "Everyday";
      t.AppliesTimeStart = Clock(start);
      t.AppliesTimeEnd = Clock(end);
      t.Unit = "Per " + t.Unit;
      t.After = t.UnitMins = number;
      t.UnitSecs = seconds;
    }
  }

  std::optional<Pricing> pricing;  // of the latest analysis
  AnsweringHost host;              // in place of the fresh program's
  ServiceRecord& service;
};

}  // namespace qel
