// Tables of what texts, numbers and dates become, a case a line: (region =>) given (=> by what) => result.
// The United States are left out; the result is an error's number where one is raised.
#pragma once

#include <map>

#include "platform/CodePage.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
#include "support/Regions.h"

namespace qel {

using Text = const std::string&;
using Conversion = std::string (*)(Text given, Text by);

// Those of a region's values that follow from one another are not brought in line here.
inline const std::map<std::string, RegionalValues>& Regions() {
  static const auto with = [](RegionalValues region, const std::function<void(RegionalValues&)>& change) {
    change(region);
    return region;
  };
  static const std::map<std::string, RegionalValues> regions = {
      {"US", UnitedStates()},
      {"Germany", Germany()},
      {"International", International()},
      {"Finland", Finland()},
      {"Mar", with({}, [](auto& mar) { mar.ShortMonths[2] = mar.ShortDays[1] = "mar"; })},
      {"Marks", {.AM = "a.m.", .PM = "p.m."}},
      {"OddMarks", {.AM = "1", .PM = "2"}},
      {"Points", {.TimeSeparator = "."}},
      {"Letter", with(Finland(), [](auto& letter) { letter.TimeSeparator = "h"; })},
      {"French", with(International(), [](auto& french) { french.TimeSeparator = "h"; })},
      {"Strokes", with(Finland(),
                       [](auto& strokes) {
                         strokes.DateSeparator = "/";
                         strokes.ShortDatePattern = "dd/MM/yy";
                       })},
      {"Padded", {.TimePattern = "hh:mm tt"}},
      {"NoMarks", {.TimePattern = "hh:mm tt", .AM = "", .PM = ""}},
      {"Bare", with(Germany(), [](auto& bare) { bare.NumberThousand = bare.CurrencySymbol = ""; })},
      {"Marked", with(Germany(),
                      [](auto& marked) {
                        marked.TimeSeparator = "h";
                        marked.AM = "vorm.";
                      })},
  };
  return regions;
}

inline void ExpectTable(const std::string& name, Conversion conversion) {
  for (auto& columns : CasesOf(name)) {
    const std::string wanted = columns.back();
    columns.pop_back();
    const bool names = columns.size() > 1 && Regions().contains(columns.front());
    Region = names ? Regions().at(columns.front()) : UnitedStates();
    if (names) columns.erase(columns.begin());
    columns.resize(2);
    std::string result;
    const auto convert = [&] { result = conversion(FromUtf8Lossy(columns[0]), columns[1]); };
    if (const int error = ErrorOf(convert)) result = "error " + std::to_string(error);
    EXPECT_EQ(ToUtf8(result), wanted) << name << ": " << columns[0] << " " << columns[1];
  }
}

}  // namespace qel
