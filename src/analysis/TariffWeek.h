// One service's tariffs over the days of a week and its holidays: which of them prices a call that begins at
// a moment, and which one a call comes to that runs on from another. Days, seconds and order are those of the
// pricing.
#pragma once

#include <vector>

#include "settings/Settings.h"

namespace qel {

inline constexpr int NoTariff = -1;

// A day of one kind: an ordinary Monday, a holiday on a Monday, ...
struct KindOfDay {
  int Weekday;  // 1 to 7, Monday being 1
  bool Holiday;
  Date Day;  // one such day
};

// Ordinary Monday to Sunday, then the holidays of the settings by their day of the week, one of each. `today`
// is where the search for an ordinary week begins.
std::vector<KindOfDay> KindsOfDay(const Settings& settings, Date today);

class TariffWeek {
 public:
  // The tariffs of `service` on `days`, which must outlive it. Raises 9 for a tariff count beyond the array.
  TariffWeek(const Settings& settings, const ServiceRecord& service, const std::vector<KindOfDay>& days);

  // The seconds of a day that a tariff holds; the last is before the first where it does not hold at all.
  struct Span {
    int First, Last;
    bool Has(int second) const { return First <= second && second <= Last; }
  };
  const Span& SpanOf(std::size_t day, int tariff) const {
    return spans[day][static_cast<std::size_t>(tariff)];
  }

  // The tariff that prices a call beginning on `day`, an index into the days, at `second`: the first that
  // holds, or NoTariff. A call that runs on asks from another tariff on, and round.
  int At(std::size_t day, int second, int from = 0) const;

  // The seconds of a day at which the answer of At may change, in their order: 0 and those at which a tariff
  // begins or has ended.
  std::vector<int> Moments(std::size_t day) const;

  // Whether some call that begins on `day`, or comes to it from the day before, is priced by the tariff
  // there.
  bool IsReached(std::size_t day, int tariff) const { return reached[day][static_cast<std::size_t>(tariff)]; }

  // Whether a call can run from one day over midnight into the other.
  bool IsNext(std::size_t day, std::size_t next) const {
    return days[next].Weekday == days[day].Weekday % 7 + 1;
  }

  // Whether a call in the tariff goes on in it at midnight, where it holds on the next day.
  bool LastsTillMidnight(std::size_t day, int tariff) const {
    return SpanOf(day, tariff).Last == SecondsPerDay - 1;
  }

  int Tariffs() const { return tariffs; }
  const std::vector<KindOfDay>& Days() const { return days; }

 private:
  void Reach(std::size_t day, int tariff);

  const std::vector<KindOfDay>& days;
  const int tariffs;
  std::vector<std::vector<Span>> spans;    // by day and tariff
  std::vector<std::vector<bool>> reached;  // likewise
};

}  // namespace qel
