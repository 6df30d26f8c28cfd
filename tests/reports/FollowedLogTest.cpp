// A log that is followed tells each connection once, as it stands in the report of the whole log.
#include <random>

#include "WeekLog.h"
#include "analysis/Analyse.h"
#include "analysis/FollowedLog.h"
#include "analysis/RunningCall.h"
#include "core/ShownDates.h"
#include "platform/TextToDate.h"
#include "reports/WrittenReport.h"
#include "values/DateFormat.h"

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

// At any moment, and what is asked at one moment changes nothing at the next.
TEST_F(FollowedLogTest, TheCallUnderWayCostsWhatItWouldIfItEndedThen) {
  std::mt19937 random(15);
  const Date start = DateSerial(1999, 3, 8) + TimeSerial(17, 30, 0);
  const std::string before = whole + FormatDate(start, "mm-dd-yyyy hh:nn:ss") + ".00 - ";
  for (const std::string number : {"5550100", "5550200", "5550999"}) {
    const std::string dialled = before + "Recv: ATDT" + number + "<cr>\r\n" +
                                FormatDate(start, "mm-dd-yyyy hh:nn:ss") + ".50 - Connection established\r\n";
    folder.Put("log", dialled);
    FollowedLog log(settings, folder.Path("log"), 0);
    log.ReadOn();
    for (int i = 0; i < 50; ++i) {
      const Date now = AddSeconds(start, static_cast<double>(random() % 130000));
      const auto call = CallUnderWay(log, now);
      ASSERT_TRUE(call);
      folder.Put("ended",
                 dialled + FormatDate(now, "mm-dd-yyyy hh:nn:ss") + ".00 - Hanging up the modem\r\n");
      FollowedLog ended(settings, folder.Path("ended"), 0);
      ended.ReadOn();
      AnalysisResult result = ended.Result();
      double cost = -1;
      ForEachConnection({result, settings, ended.FollowedPeriod()},
                        [&cost](const DetailLine& line) { cost = line.ConnectionCost; });
      EXPECT_NEAR(call->Cost, cost, 1e-9) << number << " " << MomentText(now, now, false);
      EXPECT_EQ(call->Seconds, SecondsBetween(start, now));
    }
    EXPECT_FALSE(CallUnderWay(log, start + settings.MaxConnectDays + 1));
  }
}

TEST_F(FollowedLogTest, TheNextChangeOfThePriceIsTold) {
  struct Case {
    Int16 serviceOption;
    const char *from, *to;  // of the free time
    const char *now, *change;
  };
  const Case cases[] = {
      {1, "", "", "17:30:00", "3/8/1999 5:31:00 PM Day"},
      {1, "", "", "17:31:00", "3/8/1999 6:00:00 PM Night"},
      {1, "", "", "18:00:00", "3/9/1999 8:00:00 AM Day"},
      {1, "17:45", "20:00", "17:31:10", "3/8/1999 5:45:00 PM free time"},
      {0, "17:45", "20:00", "17:31:10", "3/8/1999 6:00:00 PM Night"},
      {2, "", "", "17:50:00", "3/8/1999 6:00:00 PM Night"},
      {2, "", "", "18:00:01", "3/8/1999 6:30:00 PM more than 1 hour"},
  };
  const Date day = DateSerial(1999, 3, 8);
  folder.Put("log",
             "03-08-1999 17:30:00.00 - Recv: ATDT5550100<cr>\r\n"
             "03-08-1999 17:30:00.00 - Connection established\r\n");
  ServiceRecord& service = settings.Services[0];
  service.UpToHours = 1;
  service.PenaltyPeriod = "Day";
  for (const auto& one : cases) {
    service.ServiceOption = one.serviceOption;
    service.FreePeriod = *one.from != 0;
    if (service.FreePeriod) service.FreeStart = TextToDate(one.from), service.FreeEnd = TextToDate(one.to);
    FollowedLog log(settings, folder.Path("log"), 0);
    log.ReadOn();
    const auto call = CallUnderWay(log, day + TextToDate(one.now));
    ASSERT_TRUE(call && call->Change) << one.change;
    EXPECT_EQ(MomentText(call->Change->At, call->Change->At, false) + " " + call->Change->What, one.change);
  }
}

}  // namespace qel
