#include "ui/QuarterHours.h"

#include "platform/FormatMask.h"

namespace qel {

std::vector<std::string> QuarterHours(int minutes) {
  std::vector<std::string> times;
  for (int minute = minutes; minute < 24 * 60; minute += 15)
    times.push_back(QuarterHourText(TimeSerial(0, minute, 0)));
  return times;
}

std::string QuarterHourText(Date time) { return FormatDate(time, "hh:mm"); }

}  // namespace qel
