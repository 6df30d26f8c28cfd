// A log that is followed tells each connection once, as it stands in the report of the whole log.
#include <random>

#include "WeekLog.h"
#include "analysis/Analyse.h"
#include "analysis/FollowedLog.h"
#include "reports/WrittenReport.h"

namespace qel {

namespace {

class FollowedLogTest : public WeekLog {
 protected:
  FollowedLogTest() : whole(ReadWholeFile("inputs/week.log")) { folder.Put("log", ""); }

  void Append(const std::string& text) const {
    std::ofstream(folder.Path("log"), std::ios::app | std::ios::binary) << text;
  }

  // The connections that are news, and told now.
  std::string News(FollowedLog& log, bool withUncertain = false) {
    while (log.ReadOn() != FileTail::Found::Same) told += "other log\n";
    Int16 last = log.LastClosed();
    if (!withUncertain && log.MayGainData(last)) --last;
    AnalysisResult result = log.Result();
    std::string news;
    ForEachConnection({result, settings, log.FollowedPeriod()}, [&](const DetailLine& line) {
      if (line.Index >= log.FirstUntold() && line.Index <= last)
        news += WrittenConnection(settings, line, OutputFormat::Json);
    });
    log.Told(last);
    told += news;
    return news;
  }

  // Of the whole log, but for a last call that never ends.
  std::string Expected() {
    const Period all{findings.FirstEntryDate, DateSerial(9999, 12, 31), 1};
    AnalysisResult result = Analyse(settings, logFile, 0, all);
    std::string lines;
    ForEachConnection({result, settings, all}, [&](const DetailLine& line) {
      lines += WrittenConnection(settings, line, OutputFormat::Json);
    });
    return lines;
  }

  const std::string whole;
  const std::size_t second = whole.find("03-02-1999");  // day with calls
  std::string told;
};

}  // namespace

TEST_F(FollowedLogTest, EachConnectionIsToldOnceAsTheReportHasIt) {
  std::mt19937 random(14);
  for (const std::size_t most : {40U, 400U, 4000U}) {
    folder.Put("log", "");
    told.clear();
    FollowedLog log(settings, folder.Path("log"), 0);
    for (std::size_t at = 0, size = 0; at < whole.size(); at += size) {
      size = 1 + random() % most;
      Append(whole.substr(at, size));
      News(log);
    }
    News(log, true);
    ASSERT_GT(std::ranges::count(told, '\n'), 5);
    EXPECT_EQ(told, Expected().substr(0, told.size()));
    EXPECT_EQ(std::ranges::count(Expected(), '\n') - std::ranges::count(told, '\n'),
              log.Result().ConnectionCount - log.LastClosed());
  }
}

TEST_F(FollowedLogTest, OfAnotherLogOnlyLaterCallsAreNews) {
  Append(whole.substr(0, second));
  FollowedLog log(settings, folder.Path("log"), 0);
  const std::string before = News(log, true);
  EXPECT_NE(before, "");
  folder.Put("new", whole);
  std::filesystem::rename(folder.Path("new"), folder.Path("log"));
  const std::string behind = News(log, true);
  EXPECT_NE(behind, "");
  EXPECT_EQ(told, before + "other log\n" + behind);
  folder.Put("log", "");
  EXPECT_EQ(News(log, true), "");
  Append(whole);
  EXPECT_EQ(News(log, true), "") << "the same calls";
  EXPECT_EQ(told, before + "other log\n" + behind + "other log\n");
}

TEST_F(FollowedLogTest, ALineWithoutADateIsPassedOverAndALimitEndsIt) {
  Append("no date\n" + whole.substr(0, second));
  FollowedLog log(settings, folder.Path("log"), 0);
  const std::string first = News(log, true);
  EXPECT_TRUE(log.TakeUndated());
  EXPECT_FALSE(log.TakeUndated());
  EXPECT_NE(first, "");
  settings.MaxConnections = log.Result().ConnectionCount + 1;
  Append(whole.substr(second));
  News(log, true);
  EXPECT_TRUE(log.LimitReached());
}

}  // namespace qel
