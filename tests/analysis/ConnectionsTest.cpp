// Whole analyses, told by connections.analysis.
#include "analysis/AnalysisTest.h"
#include "analysis/Pricing.h"
#include "support/Text.h"

namespace qel {

class ConnectionsTest : public AnalysisTest {
 protected:
  ConnectionsTest() {
    settings.CostPerHour = 6;
    settings.CostPerMeg = 3;
    settings.DialCost = 0.25;
    service.PenaltyPeriod = "Week";
    service.FreeStart = Clock("18:00");
    service.FreeEnd = Clock("22:00");
  }

  // with OPTIONS; tariffs TARIFFS; log LINES: what is left behind, and what was said beside the usual.
  void Play(Act& act) {
    if (act.Words[0] == "with") return Set(act.Rest());
    if (act.Words[0] == "tariffs") return SetTariffs(act.Rest());
    host.transcript.clear();
    host.messages.clear();
    host.errors.clear();
    analysis.SummaryBuilt = analysis.DetailBuilt = true;  // of the log before
    Run(LogOf(act));
    act.Now = State(*session, *pricing).Lines();
    for (const std::string& error : host.errors) act.Now.push_back("error " + error);
    for (const Message& message : host.messages) act.Now.push_back(Quotable(message.Text));
    const std::string finished = "status:  F I N I S H E D !  -  (" +
                                 std::to_string(analysis.EntriesProcessed) + " entries processed)";
    for (const auto& told : host.transcript)
      if (told != finished && told != "report") act.Now.push_back(told);
    if (!host.Showed("report")) act.Now.push_back("no report");
  }
};

TEST_F(ConnectionsTest, AreRebuiltAndCharged) {
  ExpectScript("analysis/connections.analysis", [this](Act& act) { Play(act); });
}

TEST_F(ConnectionsTest, LongLinesAndNulsAreTextABadTimeOrNumberIsToldAnUndatedLineIsTheEnd) {
  const std::string noise(1 << 20, '\0');
  Run("01-05-1999 10:00:00.0" + noise + "recv: atdt555<cr>" + noise +
      "\n01-05-1999 x.0 CONNECTION ESTABLISHED\n   \n" + LogText("5 10:02 U; 5 10:02:01 R99999999999") +
      "noise\n" + LogText("5 10:03 D666"));
  EXPECT_EQ(analysis.ServiceTotals[1].Number, "555");
  EXPECT_EQ(analysis.ServiceTotals[1].Connections, 1);
  EXPECT_EQ(host.errors, (std::vector<std::string>{"Process, Log Entry: 2: Type mismatch",
                                                   "Process, Log Entry: 4: Overflow"}));
  EXPECT_EQ(analysis.EntriesProcessed, 4);
  EXPECT_TRUE(findings.LogCorrupt && !host.Showed("report"));
  Run(LogText("5 10:00 D555"));
  EXPECT_FALSE(findings.LogCorrupt) << "an undated line is the log's that has it";
  findings.LogCorrupt = true;  // as other tests find it
  Process();
  EXPECT_TRUE(findings.LogCorrupt);
}

TEST_F(ConnectionsTest, ChatterChangesNothingButTheCountOfEntriesWhereverBlocksEnd) {
  const std::string call = LogText("5 10:00 D555; 5 10:00:10 C; 5 10:30 U; 5 10:30:01 R20480");
  Run(call);
  const auto expected = State(*session, *pricing).Lines();
  const int entries = analysis.EntriesProcessed;
  for (std::size_t length = 0; length < 60; length += 7) {
    std::string log;
    int lines = 0;
    for (std::size_t at = 0; at < call.size(); at = call.find('\n', at) + 1) {
      for (int i = 0; i < 3000; ++i, ++lines) log += "01-05-1999" + std::string(length, ' ') + "x\r\n";
      log += call.substr(at, call.find('\n', at) + 1 - at);
    }
    Run(log);
    EXPECT_EQ(analysis.EntriesProcessed, entries + lines);
    analysis.EntriesProcessed = entries;
    EXPECT_EQ(State(*session, *pricing).Lines(), expected);
  }
}

TEST_F(ConnectionsTest, FreeTimeIsTheOverlapOfTimesOfDay) {
  service.FreePeriod = true;
  for (const auto& [from, to, call, seconds] : Cases("analysis/FreeTimes")) {
    service.FreeStart = Clock(from);
    service.FreeEnd = Clock(to);
    const Int32 free =
        Pricing(settings, period).GetFreeSeconds("777", Clock(call), Clock(call.substr(call.find('-') + 1)));
    EXPECT_EQ(free, std::stoi(seconds)) << from << " to " << to << ": " << call;
  }
}

}  // namespace qel
