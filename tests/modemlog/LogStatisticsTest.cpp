#include "modemlog/LogStatistics.h"
#include "support/FreshProgram.h"

namespace qel {

using LogStatistics = FreshProgram;

TEST_F(LogStatistics, AByteThatNoTextHoldsIsCorruptionUnlessItIsTheLast) {
  const std::pair<std::string, bool> cases[] = {{"", false},      {"a\t~ \r\n\xFF", false}, {"\xFF", false},
                                                {"\x1F\n", true}, {"\x7F\n", true},         {{0, 'a'}, true}};
  for (const auto& [text, corrupt] : cases) {
    OpenLog(text);
    EXPECT_EQ(CheckCorruption(false), corrupt) << text;
    EXPECT_EQ(host.pointer, corrupt ? MousePointer::Hourglass : MousePointer::Default) << text;
  }
}

TEST_F(LogStatistics, CorruptionTestTellsItsProgressUpToTheSizeItCanTake) {
  OpenLog(std::string(3276749, 'x'));
  EXPECT_FALSE(CheckCorruption(true));
  ASSERT_EQ(host.transcript.size(), 101u);
  EXPECT_EQ(host.transcript[6], "splash: Please Wait .....Loading  7%");
  OpenLog(std::string(3276750, 'x'));
  CheckCorruption(true);
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 6\r\n"), std::string::npos);
}

TEST_F(LogStatistics, CountEntriesAndTakeTheFirstAndTheLastDate) {
  const Date fifth = DateSerial(1999, 1, 5), sixth = DateSerial(1999, 1, 6);
  const std::tuple<const char*, float, Date, Date> cases[] = {
      {"01-05-1999 A\r\n  \r\n\r\n01-06-1999 B", 2.f, fifth, sixth},
      {"no date\n01-05-1999 A\n", 2.f, fifth, fifth},
      {"01-05-1999 A\nno date\n", 2.f, fifth, 0},
      {"  \n\n", 0.f, 0, 0},
  };
  for (const auto& [text, entries, first, last] : cases) {
    OpenLog(text);
    EXPECT_EQ(std::tuple(LogEntries, FirstEntryDate, LastEntryDate), std::tuple(entries, first, last))
        << text;
    EXPECT_EQ(LogInvalid, first == 0 || last == 0) << text;
  }
  MaxLogSize = 1;
  OpenLog(std::string(1023, ' '));
  EXPECT_FALSE(LogTooBig);
  OpenLog(std::string(1024, ' '));
  OpenLog("");  // tells nothing of dates and size
  EXPECT_TRUE(LogEmpty && LogInvalid && LogTooBig);
}

}  // namespace qel
