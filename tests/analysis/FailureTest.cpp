// The road of errors through an analysis, told by errors.analysis.
#include "analysis/AnalysisTest.h"
#include "support/ErrorRoad.h"

namespace qel {

class FailureTest : public AnalysisTest {
 protected:
  // Each run begins alike.
  void Begin() {
    Set("Option 2 Flex 6 UpTo 1000 PerMeg 2 Block 15 Free 1 Data 1024");
    SetTariffs("Units 00:00 23:59 .5 .1 Unit 1");
    service.PenaltyPeriod = service.MegPeriod = "Month";
    service.FreeStart = Clock("10:05");
    service.FreeEnd = Clock("10:06");
    SetPeriod(Jan(5), Jan(6));
    settings.NoDisconDuration = 900;
    settings.MaxServices = 4;
    settings.MaxConnections = 6;
    settings.MaxConnectDays = 3;
    host.yielded = nullptr;
    OpenLog(log);
  }

  // What is at its limit, or beyond, from the second entry on.
  std::function<void()> Limit(const std::string& name) {
    static constexpr int most16 = 32767, most32 = 2147483647;
    const std::map<std::string, std::function<void()>> limits = {
        {"Connections", [this] { analysis.ServiceTotals[1].Connections = most16; }},
        {"Seconds", [this] { analysis.ServiceTotals[1].Seconds = most32; }},
        {"Blocks", [this] { analysis.ServiceTotals[1].Blocks = most16; }},
        {"FreeSeconds", [this] { analysis.ServiceTotals[1].FreeSeconds = most32; }},
        {"BytesRead", [this] { analysis.ServiceTotals[1].BytesRead = most32; }},
        {"EntriesProcessed", [this] { analysis.EntriesProcessed = most32; }},
        {"UsedSeconds", [this] { pricing->Penalties.At(0, 0).Seconds = most32; }},
        {"UsedBytes", [this] { pricing->Penalties.At(0, 0).Bytes = most32; }},
        {"Period",
         [this] {
           service.PenaltyPeriod = "Day", period.PeriodStart = Jan(5) - 200, settings.MaxConnectDays = 300;
         }},
        {"UnitMins", [this] { service.Tariffs[0].UnitMins = 1000; }},
        {"UsedTariffs", [this] { service.Tariffs[0].AppliesDays = "", service.UsedTariffs = 11; }},
        {"Block", [this] { service.Block = 600; }},
        {"NoDisconData", [this] { settings.NoDisconData = 1e9; }},
        {"NoDisconDuration", [this] { settings.NoDisconDuration = 1e10; }}};
    return [this, limit = limits.at(name)] {
      host.yielded = [this, limit] {
        if (analysis.EntriesProcessed > 1) limit();
      };
    };
  }

  std::vector<std::string> Play(const Act& act) {
    const std::string& way = act.Words[0];
    if (way == "memory") return road.AroundMemory();
    if (way == "disk") return road.AroundDisk();
    if (way == "missing") return road.Around([this] { logFile.CurrentLogPath += "x"; }, road.Undisturbed());
    if (way == "limit") return road.Around(Limit(act.Word(1)), road.Undisturbed());
    log.clear();
    const State nothing = road.Undisturbed();
    log = LogOf(act);
    return way == "calls" ? road.Undisturbed().Lines() : road.Around([] {}, nothing);
  }

  std::string log;  // of the latest act that told one
  ErrorRoad<State> road{host, [this] { Begin(); }, [this] { Process(); },
                        [this] { return State(*session, *pricing); }};
};

TEST_F(FailureTest, LeavesOutOneEffectAndNothingElse) {
  ExpectScript("analysis/errors.analysis", [this](Act& act) { act.Now = Play(act); });
}

}  // namespace qel
