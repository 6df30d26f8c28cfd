// What is doubtful in the user's settings, before a call is charged by it: told in sentences that say what it
// does to which call.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "settings/Settings.h"

namespace qel {

enum class FindingKind {
  Gap,           // minutes that no tariff covers
  Unreached,     // a tariff in which no call begins
  RunsOver,      // a tariff keeps a call where one that stands before it has begun
  Range,         // a tariff holds on other days than its words say
  NoCost,        // a service without any cost
  SharedNumber,  // a number of two services
  PastHoliday,   // holidays that are past
  NameClash,     // two values with one name in the store
  Markers,       // a text by which log lines are recognised, and the log words them otherwise
};

// "gap", "unreached", "runs-over", ...
const char* NameOf(FindingKind kind);

// Days as a set of bits: Monday to Sunday, then holidays.
using DaySet = unsigned;
inline constexpr int DayCount = 8;
inline constexpr int HolidayBit = 7;
inline constexpr DaySet Week = 127;

// "Mon" to "Sun", "Holiday"; `day` is 0 to 7.
const char* DayName(int day);

// "Tue to Sun", "Sat, Sun and holidays", "every day".
std::string DaysInWords(DaySet days);

// Minutes of the day, both included: 0 to 1439.
struct MinuteSpan {
  int From, To;
  bool operator==(const MinuteSpan&) const = default;
};
inline constexpr int LastMinuteOfDay = 1439;

// "08:05"
std::string ClockText(int minute);

struct Finding {
  FindingKind Kind;
  std::string Service;  // its name; empty where it is about none
  DaySet Days = 0;      // on which it shows; none where it is about no day
  std::optional<MinuteSpan> Minutes;
  std::string Text;
};

// All findings of the settings as they are on a day: service by service, then those about all of them.
std::vector<Finding> CheckSettings(const Settings& settings, Date today);

// Those of a service's tariffs, where its calls are charged by tariffs.
std::vector<Finding> CheckTariffs(const Settings& settings, const ServiceRecord& service, Date today);

}  // namespace qel
