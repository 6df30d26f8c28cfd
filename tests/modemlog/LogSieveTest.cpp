#include <gtest/gtest.h>
#include <random>

#include "modemlog/SieveVerdict.h"
#include "settings/Settings.h"

namespace qel {

const Responses Told = {"RECV: ATD",  "ANSWERING",     "CONNECTION ESTABLISHED",
                        "HANGING UP", "MODEM HUNG UP", "ST\xC4NDIG (READ)",
                        "WRITES"};
const std::string Day = "01-05-1999";

// Lines of chatter, the shortest no more than a date.
std::string Chatter(int lines) {
  std::string text;
  for (int i = 0; i < lines; ++i)
    text += Day + std::string(static_cast<std::size_t>(i * 7 % 60), 'x') + "\r\n";
  return text;
}

TEST(LogSieve, AllChatterPassesButWhatStandsAtTheEndOfTheText) {
  constexpr std::size_t most = 64;  // that a kernel leaves
  const std::string log = Chatter(30);
  for (std::size_t size = 0; size <= log.size(); ++size)
    for (const Passed& passed : PassedByAll(Told, "", log.substr(0, size), Day))
      ASSERT_GE(passed.Bytes + most + 72, size);
}

TEST(LogSieve, StopsWhereALineMeansSomethingOrHasAnotherDate) {
  const std::string behind = Chatter(10);
  for (int lines = 0; lines < 12; ++lines)
    for (std::size_t place = 0; place < 40; ++place) {
      std::vector<std::string> stops = {"01-06-1999 x\r\n", "\r\n", " \n"};
      for (std::string text : Told) {
        if (place % 2)
          std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' ? c ^ 0x20 : c; });
        stops.push_back(Day + std::string(place, ' ') + text + "\n");
      }
      for (const auto& stop : stops)
        for (const Passed& passed : PassedByAll(Told, "", Chatter(lines) + stop + behind, Day))
          ASSERT_EQ(passed.Bytes, Chatter(lines).size()) << stop;
    }
}

TEST(LogSieve, LooksForWhatIsRareInTheLog) {
  const std::string common = Day + " UNREAD WRIT CONNECT HUNG HANG ANSWER RECV ATD\n";
  std::string log;
  for (int i = 0; i < 9; ++i) log += common;
  for (const Passed& passed : PassedByAll(Told, log, log, Day)) EXPECT_GE(passed.Lines, 7u);
}

TEST(LogSieve, PassesNothingWhereNoPairStandsForAText) {
  for (const char* text : {"", "A", "\x8A\x8A",
                           "\x9F"
                           "A\x9F"}) {
    Responses responses = Told;
    responses[3] = text;
    for (const Passed& passed : PassedByAll(responses, "", Chatter(20), Day))
      EXPECT_EQ(passed.Bytes, 0u) << text;
  }
  for (const std::string& date : {std::string(), std::string("01-05-199"), std::string("01-05-199\r")})
    for (const Passed& passed : PassedByAll(Told, "", date + "\n" + date + std::string(80, 'x') + "\n", date))
      EXPECT_EQ(passed.Bytes, 0u);
}

TEST(LogSieve, PassesOnlyWhatTheClassifierAgreesTo) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  const std::string letters("ABab \r\n\xC4\xE4\x8A\x9A\xFF\x9F\xDF*-\0", 17);
  const auto some = [&](std::size_t length) {
    std::string text(length, ' ');
    for (char& letter : text) letter = letters[below(letters.size())];
    return text;
  };
  for (int round = 0; round < 2000; ++round) {
    Responses responses;
    for (auto& response : responses) response = some(2 + below(4));
    std::string log;
    while (log.size() < 400 && below(20) != 0)
      log += (below(9) ? Day : some(10)) + std::string(below(40), '.') +
             (below(3) ? "" : responses[below(7)] + some(below(5))) + (below(3) ? "\r\n" : "\n");
    ASSERT_NO_THROW(PassedByAll(responses, below(2) ? log : "", log.substr(0, log.size() - below(3)), Day))
        << log;
  }
}

}  // namespace qel
