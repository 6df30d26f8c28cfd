#include "ui/QuarterHours.h"

#include "values/DateFormat.h"

namespace qel {

namespace {

constexpr int QuartersPerDay = 96;

}  // namespace

std::vector<std::string> QuarterHours(int minutes) {
  std::vector<std::string> times;
  for (int entry = 0; entry < QuartersPerDay; ++entry)
    times.push_back(QuarterHourText(QuarterHour(entry, minutes)));
  return times;
}

Date QuarterHour(int entry, int minutes) { return TimeSerial(0, 15 * entry + minutes, 0); }

std::string QuarterHourText(Date time) { return FormatDate(time, "hh:mm"); }

}  // namespace qel
