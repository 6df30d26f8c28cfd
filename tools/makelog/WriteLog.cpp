#include "makelog/WriteLog.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

#include "makelog/LogWriter.h"
#include "makelog/ModemDriver.h"
#include "makelog/Random.h"

namespace qel {

namespace {

// How many of a hundred and some calls begin in each hour of the day.
constexpr int CallsByHour[] = {3, 2, 1, 0, 0, 0, 1, 2, 4, 5, 5, 5, 6, 5, 5, 5, 6, 7, 9, 10, 11, 11, 9, 7};

constexpr Moment ShortestPause = 30 * MomentsPerSecond;

// A moment of the day, the hour by its weight.
Moment TimeOfDay(Random& random) {
  int left = random.Between(1, std::accumulate(std::begin(CallsByHour), std::end(CallsByHour), 0));
  int hour = 0;
  while (left > CallsByHour[hour]) left -= CallsByHour[hour++];
  return 3600 * MomentsPerSecond * hour + random.Between(0, 3600 * MomentsPerSecond - 1);
}

}  // namespace

void WriteLog(const LogOptions& options, std::ostream& out) {
  Random random(options.Seed);
  LogWriter log(out, options.Start);
  ModemDriver driver(options, log, random);
  std::vector<Moment> starts;
  Moment free = 0;
  const auto enough = [&] { return options.Size > 0 && log.Size() >= options.Size; };

  for (int day = 0; (options.Days == 0 || day < options.Days) && !enough(); ++day) {
    int calls = options.CallsPerThousandDays / 1000;
    if (random.Chance(options.CallsPerThousandDays % 1000)) ++calls;
    starts.resize(static_cast<std::size_t>(calls));
    for (Moment& start : starts) start = day * MomentsPerDay + TimeOfDay(random);
    std::ranges::sort(starts);
    for (const Moment start : starts) {
      if (enough()) break;
      free = driver.Call(std::max(start, free)) + ShortestPause;
    }
  }
  log.Flush();
}

}  // namespace qel
