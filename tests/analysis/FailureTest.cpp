// What becomes of an analysis whose statements fail: repeated, they repeat no effect; passed over, they leave
// out that one effect and nothing else.
#include "analysis/AnalysisTest.h"
#include "core/EndProgram.h"
#include "support/FailingMemory.h"

namespace qel {

namespace {

// Every field that an analysis leaves behind, by its name.
using State = std::map<std::string, std::string>;

void Tell(State& state, const std::string& name, const std::string& text) { state[name] = text; }
void Tell(State& state, const std::string& name, double number) { state[name] = std::to_string(number); }

State StateNow() {
  State state;
  const auto tell = [&state](const std::string& prefix, const auto&... fields) {
    (Tell(state, prefix + fields.first, fields.second), ...);
  };
  for (int i = 1; i <= ConnectionCount; ++i) {
    const ConnectionRecord& c = Connections[i];
    tell("Connections[" + std::to_string(i) + "].", std::pair("Start", c.StartDate + c.StartTime),
         std::pair("End", c.EndDate + c.EndTime), std::pair("Number", c.Number), std::pair("Notes", c.Notes),
         std::pair("BytesRead", int{c.BytesRead}), std::pair("BytesWritten", int{c.BytesWritten}),
         std::pair("FreeSeconds", int{c.FreeSeconds}));
  }
  for (int i = 0; i <= TotalsCount; ++i) {
    const ServiceTotal& s = ServiceTotals[i];
    tell("Slot" + std::to_string(i) + ".", std::pair("Number", s.Number),
         std::pair("Seconds", int{s.Seconds}), std::pair("Connections", int{s.Connections}),
         std::pair("TotalCost", s.TotalCost), std::pair("DialCost", s.DialCost),
         std::pair("ServiceCost", s.ServiceCost), std::pair("BytesRead", int{s.BytesRead}),
         std::pair("Blocks", int{s.Blocks}), std::pair("FreeSeconds", int{s.FreeSeconds}));
  }
  const PeriodUsage& used = Penalties.At(0, 0);
  tell("", std::pair("UsedSeconds", int{used.Seconds}), std::pair("UsedBytes", int{used.Bytes}),
       std::pair("ConnectionCount", int{ConnectionCount}), std::pair("TotalsCount", int{TotalsCount}),
       std::pair("LogErrorsFound", LogErrorsFound), std::pair("TariffIncomplete", TariffIncomplete),
       std::pair("EntriesProcessed", int{EntriesProcessed}));
  return state;
}

// The names of the fields in which two states differ.
std::string Differences(const State& one, const State& other) {
  std::string names;
  State all = one;
  all.insert(other.begin(), other.end());
  for (const auto& [name, _] : all)
    if (!one.contains(name) || !other.contains(name) || one.at(name) != other.at(name))
      names += (names.empty() ? "" : " ") + name;
  return names;
}

}  // namespace

class FailingStatements : public AnalysisTest {
 protected:
  FailingStatements() {
    service.DialOption = service.ServiceOption = 2;
    service.UsedTariffs = 1;
    service.Tariffs[0] = {.Description = "Units",
                          .AppliesDays = "Everyday",
                          .AppliesTimeEnd = Clock("23:59"),
                          .DialRate = 0.5,
                          .PerMinuteRate = 0.1,
                          .Unit = "Per Unit",
                          .UnitMins = 1};
    service.FlexRate = 6;
    service.UpToHours = 1000;
    service.PenaltyPeriod = service.MegPeriod = "Month";
    service.PerMeg = 2;
    service.Block = 15;
    service.FreePeriod = true;
    service.FreeStart = Clock("10:05");
    service.FreeEnd = Clock("10:06");
    NoDisconData = 1024;
  }

  // Two answers to each of the errors that follow; an error is shown twice, and the second answer counts.
  void Answer(std::initializer_list<qel::Answer> answers) {
    host.answers.clear();
    for (int i = 0; i < 100; ++i)
      for (const qel::Answer answer : answers) host.answers.insert(host.answers.end(), 2, answer);
  }

  State After(const std::string& log) {
    Run(log);
    return StateNow();
  }

  const std::string calls = LogText(
      "5 10:00 D555; 5 10:01 C; 5 10:16 U; 5 10:16:01 R1048576; 5 10:16:02 W2048; 5 11:00 A; 5 11:01 C; "
      "5 11:02 D777; 5 11:03 C; 5 11:04 C; 5 11:05 U; 5 12:00 D666; 5 12:01 C");
};

TEST_F(FailingStatements, OnceOutOfMemoryAndRepeatedLeaveNoTrace) {
  const State undisturbed = After(calls);
  for (int n = 1; n == 1 || RefusedMemory(); ++n) {
    host.messages.clear();
    Answer({qel::Answer::Retry});
    RefuseMemory(n);
    Analyse();
    if (RefusedMemory() && host.messages.empty()) continue;  // what ignores errors does so without a word
    EXPECT_EQ(Differences(StateNow(), undisturbed), "") << n;
  }
}

TEST_F(FailingStatements, PassedOverLeaveOutOneEffectAndRepeatedRepeatNone) {
  const auto slot = [](auto member, int most) { return [=] { ServiceTotals[1].*member = most; }; };
  constexpr int most16 = 32767, most32 = 2147483647;
  // What is in the way from the second entry on, and what is not as it would be without.
  const struct {
    std::function<void()> meddle;
    const char* differences;
  } obstacles[] = {
      {slot(&ServiceTotal::Connections, most16), "Slot1.Connections"},
      {slot(&ServiceTotal::Seconds, most32), "Slot1.Seconds"},
      {slot(&ServiceTotal::Blocks, most16), "Slot1.Blocks"},
      {slot(&ServiceTotal::FreeSeconds, most32), "Slot1.FreeSeconds"},
      {slot(&ServiceTotal::BytesRead, most32), "Slot1.BytesRead"},
      {[] { EntriesProcessed = most32; }, "EntriesProcessed"},
      {[] { Penalties.At(0, 0).Seconds = most32; }, "Slot1.ServiceCost Slot1.TotalCost UsedSeconds"},
      {[] { Penalties.At(0, 0).Bytes = most32; }, "Slot1.TotalCost UsedBytes"},
      // a unit longer than 16 bits hold
      {[this] { service.Tariffs[0].UnitMins = 1000; }, "Slot1.DialCost Slot1.TotalCost"},
      // the 200th charging period
      {[this] { service.PenaltyPeriod = "Day", PeriodStart = Jan(5) - 200, MaxConnectDays = 300; },
       "Slot1.ServiceCost Slot1.TotalCost UsedBytes UsedSeconds"},
      // estimates for the connections behind the first, which stays
      {[] { NoDisconData = 1e9; },
       "Connections[2].BytesRead Connections[2].Notes Connections[3].BytesRead Connections[3].Notes "
       "Connections[5].BytesRead Connections[5].Notes Slot1.BytesRead Slot1.TotalCost Slot2.BytesRead "
       "Slot3.BytesRead UsedBytes"},
      {[] { NoDisconDuration = 1e10; },
       "Connections[2].End Connections[3].End Connections[3].FreeSeconds Connections[3].Notes "
       "Connections[5].End Slot1.Blocks Slot1.DialCost Slot1.FreeSeconds Slot1.Seconds Slot1.ServiceCost "
       "Slot1.TotalCost Slot2.Seconds Slot2.ServiceCost Slot2.TotalCost Slot3.Seconds Slot3.ServiceCost "
       "Slot3.TotalCost UsedSeconds"},
  };
  const State undisturbed = After(calls);
  const auto service = this->service;
  for (const auto& [meddle, differences] : obstacles) {
    const auto run = [&](std::initializer_list<qel::Answer> answers) {
      this->service = service;
      SetPeriod(Jan(5), Jan(6));
      NoDisconData = 1024, NoDisconDuration = 900;
      host.messages.clear();
      host.yielded = [&meddle = meddle] {
        if (EntriesProcessed > 1) meddle();
      };
      Answer(answers);
      return After(calls);
    };
    const State passedOver = run({qel::Answer::Ignore});
    EXPECT_EQ(Differences(passedOver, undisturbed), differences);
    ASSERT_GE(host.messages.size(), 2u) << differences;
    EXPECT_EQ(Differences(run({qel::Answer::Retry, qel::Answer::Retry, qel::Answer::Ignore}), passedOver), "")
        << differences;
    EXPECT_THROW(run({qel::Answer::Abort}), ProgramEnd) << differences;
  }
}

TEST_F(FailingStatements, AConnectionWithoutRoomIsPassedOverAndTheOthersStay) {
  MaxConnections = 2;
  const State two = After(LogText("5 10:00 C; 5 10:01 U; 5 10:02 C; 5 10:03 U"));
  State three = After(LogText("5 10:00 C; 5 10:01 U; 5 10:02 C; 5 10:03 U; 5 10:04 C; 5 10:05 C; 5 10:06 U"));
  EXPECT_EQ(Differences(three, two), "EntriesProcessed");
  EXPECT_EQ(host.messages.size(), 4u) << "an error for each of the two, shown twice";
}

}  // namespace qel
