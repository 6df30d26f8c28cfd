#include <gtest/gtest.h>
#include <map>
#include <numeric>

#include "reports/ChartScale.h"
#include "reports/UseByTime.h"
#include "reports/UseCharts.h"
#include "settings/Settings.h"
#include "support/Cases.h"
#include "support/FreshProgram.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

const Date Day = DateSerial(1999, 3, 1);  // the first of a period of three
const Date Thursday = DateSerial(1998, 10, 1);

struct Line {
  int day, hour, minute;  // day 0 is the first of the period
  int seconds;
};

void Add(UseByTime& use, const Line& given, double cost) {
  ConnectionRecord connection;
  connection.StartDate = Day + given.day;
  connection.StartTime = TimeSerial(given.hour, given.minute, 0);
  use.Add({.Connection = connection, .Pieces = {}, .Seconds = given.seconds, .ConnectionCost = cost});
}

std::string TicksOf(const std::string& chart) {
  const std::string mark = "<text class=\"middle\"";
  std::string ticks;
  for (auto at = chart.find(mark); at != std::string::npos; at = chart.find(mark, at + 1)) {
    const auto begin = chart.find('>', at) + 1;
    ticks += (ticks.empty() ? "" : ", ") + chart.substr(begin, chart.find('<', begin) - begin);
  }
  return ticks;
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

struct ChartTest : FreshProgram {};

TEST_F(ChartTest, LongPeriodsAreDividedIntoLongerSpans) {
  const Settings settings;
  const UseByService services(settings);
  const char* const lengths[] = {"day", "week", "month", "year"};
  for (const auto& [days, length, count, second, ticks] : Cases<5>("reports/Spans")) {
    const Date last = Thursday + std::stoi(days) - 1;
    UseByTime use(Thursday, last);
    const auto& spans = use.Spans();
    EXPECT_EQ(lengths[static_cast<int>(use.Length())], length) << days;
    EXPECT_EQ(std::to_string(spans.size()), count) << days;
    EXPECT_EQ(FormatDate(spans[1].First, "yyyy-mm-dd"), second) << days;
    EXPECT_EQ(spans[0].First, Thursday) << days;
    EXPECT_EQ(spans.back().Last, last) << days;
    for (std::size_t i = 1; i < spans.size(); ++i) ASSERT_EQ(spans[i - 1].Last + 1, spans[i].First) << days;
    Add(use, {0, 10, 0, 600}, 1);
    EXPECT_EQ(TicksOf(UseCharts(services, use, true, 960).front().Picture.Markup), ticks) << days;
  }
}

TEST_F(ChartTest, AFewReadableLinesReachOverTheHighestValue) {
  for (const auto& [kind, highest, expected] : Cases<3>("reports/Scales")) {
    const ChartScale scale = (kind == "time" ? TimeScale : MoneyScale)(std::stod(highest));
    std::string labels;
    for (int i = 0; i <= scale.Steps; ++i) labels += (i == 0 ? "" : ", ") + scale.Label(i * scale.Step);
    EXPECT_EQ(labels, expected) << kind << " " << highest;
    EXPECT_GE(scale.Top(), std::stod(highest));
  }
}

}  // namespace qel
