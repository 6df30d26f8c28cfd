// Findings beside the pricing of calls in the same settings.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>

#include "analysis/AnalysisTest.h"
#include "analysis/SettingsCheck.h"

namespace qel {

namespace {

class RandomTariffs {
 public:
  explicit RandomTariffs(unsigned seed) : random(seed) {}
  int UpTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  // Each tariff's charge per call is its number, so that a call's cost names the tariff that it began in.
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
      tariff.Unit = "Per Minute";
    }
  }

 private:
  std::mt19937 random;
};

bool Shows(const Finding& finding, FindingKind kind, int day, int minute) {
  return finding.Kind == kind && finding.Days >> day & 1 && finding.Minutes->From <= minute &&
         minute <= finding.Minutes->To;
}

}  // namespace

// QEL_TARIFF_SETS tells how many sets.
TEST_F(AnalysisTest, CheckFindsEveryGapAndEveryTariffInWhichNoCallBegins) {
  const char* const wanted = std::getenv("QEL_TARIFF_SETS");
  RandomTariffs random(7);
  SetPeriod(Jan(4), Jan(12));
  for (int set = 0, sets = wanted ? std::stoi(wanted) : 40; set < sets; ++set) {
    random.Fill(service);
    settings.Holidays[0] = Jan(11 + random.UpTo(1));  // beside Monday to Sunday from the 4th
    const Pricing pricing(settings, period);
    const auto findings = CheckTariffs(settings, service, Jan(4));
    std::array<bool, MaxTariffs + 1> begun{};
    for (int day = 0; day < DayCount; ++day)
      for (int minute = 0; minute < 1440; ++minute) {
        const Date date = day == HolidayBit ? settings.Holidays[0] : Jan(4 + day),
                   time = TimeSerial(0, minute, 0);
        const double cost =
            pricing.GetDialupCost("555", date, time, date, time + 30.0 / SecondsPerDay, nullptr);
        begun[static_cast<std::size_t>(cost)] = true;
        const auto shown = std::ranges::count_if(
            findings, [&](const Finding& f) { return Shows(f, FindingKind::Gap, day, minute); });
        ASSERT_EQ(shown, cost == 0 ? 1 : 0) << set << ": " << DayName(day) << " " << ClockText(minute);
      }
    for (int t = 0; t < service.UsedTariffs; ++t) {
      const std::string name = "'" + service.Tariffs[t].Description + "'";
      const bool told = std::ranges::any_of(findings, [&](const Finding& f) {
        return (f.Kind == FindingKind::Unreached || f.Text.find("is ever charged") != std::string::npos) &&
               f.Text.find(name) < f.Text.find(" it");
      });
      EXPECT_EQ(told, !begun[static_cast<std::size_t>(t + 1)]) << set << ": " << name;
    }
  }
}

}  // namespace qel
