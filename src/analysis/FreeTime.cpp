#include "analysis/FreeTime.h"

#include <algorithm>

#include "core/ErrorHandler.h"
#include "modemlog/DialledNumber.h"
#include "settings/Settings.h"

namespace qel {

namespace {

// A connection and a free period that both run over midnight are counted to this time, plus one second.
constexpr int MinuteBeforeMidnight = 23 * 3600 + 59 * 60;

int Positive(int seconds) { return std::max(seconds, 0); }

// All four in seconds of the day. Free from fs to fe, connected from a to b. The first rule that fits
// decides; below 0 is 0.

int FreeDayConnectedDay(int fs, int fe, int a, int b) {
  if (b <= fs || a >= fe) return 0;
  if (a >= fs && b <= fe) return b - a;
  if (a <= fs && b >= fe) return fe - fs;
  if (a <= fs) return b - fs;
  return fe - a;
}

int FreeDayConnectedOverMidnight(int fs, int fe, int a, int b) {
  if (b <= fs && a >= fe) return 0;
  if (a <= fs || b >= fe) return fe - fs;
  return Positive(fe - a) + Positive(b - fs);
}

int FreeOverMidnightConnectedOverMidnight(int fs, int fe, int a, int b) {
  const int evening = MinuteBeforeMidnight - std::max(a, fs) + 1;
  const int morning = std::min(b, fe);
  return Positive(evening) + Positive(morning);
}

// Of a connection that begins in the morning's free time and ends after it, the evening alone counts.
int FreeOverMidnightConnectedDay(int fs, int fe, int a, int b) {
  if (b <= fs && a >= fe) return 0;
  if (a >= fs) return b - a;
  if (a < fe && b <= fe) return b - a;
  return b - fs;
}

}  // namespace

Int32 GetFreeSeconds(const std::string& number, Date start, Date stop) {
  Int32 seconds = 0;
  IgnoreErrors([&] {
    const Int16 index = GetServiceIndex(number);
    if (index < 0 || !Services[index].FreePeriod) return;
    const int fs = SecondOfDay(Services[index].FreeStart), fe = SecondOfDay(Services[index].FreeEnd);
    const int a = SecondOfDay(start), b = SecondOfDay(stop);
    const auto rules = fs < fe
                           ? (a < b ? FreeDayConnectedDay : FreeDayConnectedOverMidnight)
                           : (a < b ? FreeOverMidnightConnectedDay : FreeOverMidnightConnectedOverMidnight);
    seconds = Positive(rules(fs, fe, a, b));
  });
  return seconds;
}

}  // namespace qel
