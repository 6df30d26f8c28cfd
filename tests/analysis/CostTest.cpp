#include "analysis/AnalysisTest.h"
#include "analysis/Pricing.h"
#include "analysis/TariffDays.h"
#include "support/Text.h"

namespace qel {

TEST_F(AnalysisTest, CallIsPricedPieceByPieceByTheFirstTariffThatHolds) {
  const Pricing pricing(settings, period);
  for (const auto& [tariffs, call, cost, notes] : Cases("analysis/Calls")) {
    SetTariffs(tariffs);
    std::istringstream words(call);
    int from, to;
    std::string start, end;
    words >> from >> start >> to >> end;
    std::string told = "R:2K";
    PricePieces pieces;
    EXPECT_NEAR(pricing.GetDialupCost("777", Jan(from), Clock(start), Jan(to), Clock(end), &pieces),
                std::stod(cost), 1e-9)
        << tariffs << " => " << call;
    for (const auto& piece : pieces) AddNote(piece, told);
    EXPECT_EQ(told, "R:2K" + notes) << tariffs << " => " << call;
  }
  service.DialOption = 3;  // which is none
  EXPECT_EQ(pricing.GetDialupCost("777", Jan(5), 0, Jan(5), 0), 0);
  SetTariffs("Flat 00:00 23:59 0 1 Unit 0 1");  // more units than 16 bits hold
  EXPECT_THROW(pricing.GetDialupCost("777", Jan(5), Clock("01:00"), Jan(5), Clock("23:00")), RunTimeError);
}

TEST_F(AnalysisTest, TariffDaysHoldInWhateverLanguageTheyWereWritten) {
  using Names = std::array<std::string, 7>;
  const auto named = [](const std::string& text) {
    Names names;
    std::istringstream words(Unfolded(text));
    for (std::string& name : names) words >> name;
    return names;
  };
  std::map<std::string, std::pair<Names, Names>> languages = {{"", {Region.ShortDays, Region.LongDays}}};
  for (const auto& [language, brief, whole, _] : Cases("analysis/DayNames"))
    languages[language] = {named(brief), named(whole)};
  for (const auto& [days, expected, language, _] : Cases("analysis/TariffDays")) {
    std::tie(Region.ShortDays, Region.LongDays) = languages.at(language);
    std::string matches;
    for (int day = 4; day <= 10; ++day) matches += DayMatches(settings, Jan(day), days) ? "1" : "0";
    EXPECT_EQ(matches, expected) << days << " " << language;
  }
  std::tie(Region.ShortDays, Region.LongDays) = languages.at("German");
  for (const auto& c : Cases<2>("analysis/GermanDays"))
    EXPECT_EQ(DaysInUsersWords(c[0]) + (AreKnownDays(c[0]) ? ", known" : ""), c[1]);
}

TEST_F(AnalysisTest, ChargingPeriodsAreWindowsFromTheFirstDayOfTheReport) {
  SetPeriod(Jan(31), Jan(31));  // its month is 28 days long
  const Pricing pricing(settings, period);
  const std::tuple<const char*, int, int> cases[] = {{"Month", 27, 0}, {"Month", 28, 1}, {"Week", -20, 0}};
  for (const auto& [name, days, number] : cases)
    EXPECT_EQ(pricing.GetPeriodNumber(Jan(31 + days), name), number);
}

}  // namespace qel
