#include <gtest/gtest.h>
#include <map>
#include <numeric>

#include "core/CurrencyFormat.h"
#include "reports/ChartScale.h"
#include "reports/UseByTime.h"
#include "support/FreshProgram.h"

namespace qel {

namespace {

const Date Day = DateSerial(1999, 3, 1);  // the first of a period of three

struct Line {
  int day, hour, minute;  // day 0 is the first of the period
  int seconds;
};

void Add(UseByTime& use, const Line& given, double cost) {
  ConnectionRecord connection;
  connection.StartDate = Day + given.day;
  connection.StartTime = TimeSerial(given.hour, given.minute, 0);
  use.Add({connection, 1, false, given.seconds, 0, 0, 0, cost});
}

double Sum(const std::array<double, 24>& hours) { return std::accumulate(hours.begin(), hours.end(), 0.0); }

}  // namespace

TEST(UseByTime, TimeCountsWhereItPassedAndCostWhereItBegan) {
  const struct {
    Line line;
    std::array<double, 3> seconds, cost;
    std::map<std::size_t, double> hours;
  } cases[] = {
      {{0, 10, 0, 600}, {600, 0, 0}, {1, 0, 0}, {{10, 600}}},
      {{1, 10, 50, 4500}, {0, 4500, 0}, {0, 1, 0}, {{10, 600}, {11, 3600}, {12, 300}}},
      {{0, 23, 50, 1200}, {600, 600, 0}, {1, 0, 0}, {{23, 600}, {0, 600}}},
      {{-1, 23, 50, 600}, {600, 0, 0}, {1, 0, 0}, {{0, 600}}},  // what lies inside begins at midnight
      {{2, 23, 50, 600}, {0, 0, 600}, {0, 0, 1}, {{23, 600}}},  // ends with the period
      {{2, 23, 50, 1200}, {0, 0, 1200}, {0, 0, 1}, {{23, 600}, {0, 600}}},
      {{1, 10, 0, 0}, {0, 0, 0}, {0, 1, 0}, {}},
      {{1, 10, 0, -5}, {0, -5, 0}, {0, 1, 0}, {{10, -5}}},  // a clock that was set back
  };
  for (const auto& c : cases) {
    UseByTime use(Day, Day + 2);
    Add(use, c.line, 1);
    ASSERT_EQ(use.Spans().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(use.Spans()[i].Seconds, c.seconds[i]) << c.line.day << ", " << c.line.hour << ", span " << i;
      EXPECT_EQ(use.Spans()[i].Cost, c.cost[i]) << c.line.day << ", " << c.line.hour << ", span " << i;
    }
    for (const auto& [hour, seconds] : c.hours) EXPECT_EQ(use.HourSeconds()[hour], seconds) << hour;
    EXPECT_EQ(Sum(use.HourSeconds()), c.line.seconds);
  }
}

TEST(UseByTime, LongPeriodsAreDividedIntoLongerSpans) {
  const struct {
    int days;
    SpanLength length;
    std::size_t spans;
    Date second;  // first day of the second span; the period begins on a Thursday
  } cases[] = {
      {100, SpanLength::Day, 100, DateSerial(1998, 10, 2)},
      {101, SpanLength::Week, 15, DateSerial(1998, 10, 5)},
      {701, SpanLength::Month, 23, DateSerial(1998, 11, 1)},
      {3001, SpanLength::Year, 9, DateSerial(1999, 1, 1)},
      {32767, SpanLength::Year, 91, DateSerial(1999, 1, 1)},
  };
  const Date first = DateSerial(1998, 10, 1);
  for (const auto& c : cases) {
    const Date last = first + c.days - 1;
    const UseByTime use(first, last);
    EXPECT_EQ(use.Length(), c.length) << c.days;
    EXPECT_EQ(use.Spans().size(), c.spans) << c.days;
    EXPECT_EQ(use.Spans()[1].First, c.second) << c.days;
    EXPECT_EQ(use.Spans()[0].Last + 1, c.second) << c.days;
    EXPECT_EQ(use.Spans().back().Last, last) << c.days;
  }
}

struct ChartScaleTest : FreshProgram {};

TEST_F(ChartScaleTest, AFewReadableLinesReachOverTheHighestValue) {
  const struct {
    ChartScale scale;
    int steps;
    const char *first, *top;
  } cases[] = {
      {TimeScale(1), 1, "1 min", "1 min"},        {TimeScale(1368), 3, "10 min", "30 min"},
      {TimeScale(7200), 4, "30 min", "120 min"},  {TimeScale(7201), 3, "1 h", "3 h"},
      {TimeScale(345600), 4, "24 h", "96 h"},     {TimeScale(1.8e6), 3, "200 h", "600 h"},
      {MoneyScale(0.001), 1, "$0.01", "$0.01"},   {MoneyScale(0.09), 2, "$0.05", "$0.10"},
      {MoneyScale(84.5), 4, "$25.00", "$100.00"}, {MoneyScale(1e6), 4, "$250,000.00", "$1,000,000.00"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.scale.Steps, c.steps) << c.top;
    EXPECT_EQ(c.scale.Label(c.scale.Step), c.first);
    EXPECT_EQ(c.scale.Label(c.scale.Top()), c.top);
  }
}

}  // namespace qel
