// A fixture for analyses of logs told in short strings, with one service whose numbers are 555 and 777,
// for a report of the 5th, a holiday, and the 6th of January 1999.
#pragma once

#include <map>
#include <sstream>

#include "platform/DateConversion.h"
#include "platform/FormatMask.h"
#include "support/Cases.h"
#include "support/FreshProgram.h"

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

class AnalysisTest : public FreshProgram {
 protected:
  AnalysisTest() : service(AddService("Alpha", "555", "777")) {
    SetPeriod(Jan(5), Jan(6));
    Holidays[0] = Jan(5);
    UsedHolidays = 1;
  }

  void Run(const std::string& log) {
    OpenLog(log);
    Analyse();
  }

  ServiceRecord& service;
};

}  // namespace qel
