// Findings beside the pricing of calls in the same settings.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <set>

#include "analysis/AnalysisTest.h"
#include "analysis/SettingsCheck.h"

namespace qel {

namespace {

class RandomTariffs {
 public:
  explicit RandomTariffs(unsigned seed) : random(seed) {}
  int UpTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  // Each tariff charges its number for a call and ten times as much for a second.
  void Fill(ServiceRecord& service) {
    static const char* const days[] = {"Everyday",  "Everyday",  "Holidays",  "Mon - Fri", "Mon - Fri",
                                       "Sat - Sun", "Sat - Mon", "Wednesday", "Mon - Thu", "Fri - Sun"};
    service.DialOption = 2;
    service.UsedTariffs = UpTo(MaxTariffs);
    for (int t = 0; t < service.UsedTariffs; ++t) {
      TariffRecord& tariff = service.Tariffs[t] = {};
      tariff.Description = "T" + std::to_string(t + 1);
      tariff.AppliesDays = days[UpTo(9)];
      tariff.AppliesTimeStart = UpTo(1) ? 0 : TimeSerial(UpTo(23), UpTo(59), 0);
      tariff.AppliesTimeEnd = UpTo(1) ? TimeSerial(23, 59, 0) : TimeSerial(UpTo(23), UpTo(59), 0);
      tariff.DialRate = t + 1;
      tariff.PerMinuteRate = 10 * (t + 1);
      tariff.Unit = "Per Second";
    }
  }

 private:
  std::mt19937 random;
};

int Gaps(const std::vector<Finding>& findings, int day, int minute) {
  return static_cast<int>(std::ranges::count_if(findings, [&](const Finding& f) {
    return f.Kind == FindingKind::Gap && f.Days >> day & 1 && f.Minutes->From <= minute &&
           minute <= f.Minutes->To;
  }));
}

// Whether some tariff keeps calls in which another would begin at this minute.
bool RunsOver(const std::vector<Finding>& findings, int day, int minute) {
  return std::ranges::any_of(findings, [&](const Finding& f) {
    return f.Kind == FindingKind::RunsOver && f.Days >> day & 1 && f.Minutes->From == minute;
  });
}

bool IsToldUnreached(const std::vector<Finding>& findings, const std::string& tariff) {
  return std::ranges::any_of(findings, [&](const Finding& f) {
    return (f.Kind == FindingKind::Unreached || f.Text.find("is ever charged") != std::string::npos) &&
           f.Text.find("'" + tariff + "'") < f.Text.find(" it");
  });
}

}  // namespace

// QEL_TARIFF_SETS tells how many sets.
TEST_F(AnalysisTest, CheckFindsWhatCallsInEachMinuteOfAWeekArePricedBy) {
  const char* const wanted = std::getenv("QEL_TARIFF_SETS");
  RandomTariffs random(7);
  SetPeriod(Jan(4), Jan(12));
  const Pricing pricing(settings, period);
  // The number of the tariff that all of a call is priced by, or 0. A second at midnight is never charged.
  const auto pricedBy = [&](Date day, int minute, int seconds) {
    const Date start = AddSeconds(day, minute * 60), end = AddSeconds(start, seconds);
    const double cost = pricing.GetDialupCost("555", WholeDay(start), start - WholeDay(start), WholeDay(end),
                                              end - WholeDay(end), nullptr);
    const double number = cost / (1 + 10 * (seconds - (WholeDay(end) > WholeDay(start) ? 1 : 0)));
    return number == std::floor(number) ? static_cast<int>(number) : 0;
  };
  for (int set = 0, sets = wanted ? std::stoi(wanted) : 30; set < sets; ++set) {
    random.Fill(service);
    const Date holiday = settings.Holidays[0] = Jan(11 + random.UpTo(1));
    const auto findings = CheckTariffs(settings, service, Jan(4));
    std::set<int> begun;
    for (int day = 0; day < DayCount; ++day) {
      const Date date = day == HolidayBit ? holiday : Jan(4 + day);
      for (int minute = 0, before = 0; minute < 1440; ++minute) {
        const std::string where = std::to_string(set) + ": " + DayName(day) + " " + ClockText(minute);
        const int now = pricedBy(date, minute, 30);
        begun.insert(now);
        ASSERT_EQ(Gaps(findings, day, minute), now == 0) << where;
        if (minute > 0 && before > 0) {
          const bool keeps = now != before && pricedBy(date, minute - 1, 90) == before;
          ASSERT_EQ(RunsOver(findings, day, minute), keeps) << where;
        } else if (const int eve = date > Jan(4) && minute == 0 ? pricedBy(date - 1, 1439, 30) : 0;
                   eve > 0 && eve != now && pricedBy(date - 1, 1439, 90) == eve) {
          ASSERT_TRUE(RunsOver(findings, day, 0)) << where;
        }
        before = now;
      }
    }
    for (int t = 1; t <= service.UsedTariffs; ++t)
      EXPECT_EQ(IsToldUnreached(findings, service.Tariffs[t - 1].Description), !begun.contains(t))
          << set << ": " << t;
  }
}

}  // namespace qel
