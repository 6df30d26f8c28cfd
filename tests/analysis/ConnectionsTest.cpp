#include "analysis/AnalysisTest.h"
#include "analysis/ConnectionNotes.h"
#include "analysis/FreeTime.h"

namespace qel {

// "Block 15 Rate 8" and the like; what is not named is 0.
void Set(ServiceRecord& service, const std::string& text) {
  std::map<std::string, double> options;
  std::istringstream words(text);
  for (std::string name; words >> name;) words >> options[name];
  service.DialOption = 1;
  service.DialFixedTariff = options["Call"];
  service.ServiceOption = options["Option"];
  service.ServiceRate = options["Rate"];
  service.FlexRate = options["Flex"];
  service.FlexRate2 = options["Flex2"];
  service.UpToHours = options["UpTo"];
  service.PerMeg = options["PerMeg"];
  service.AfterMeg = options["PerSession"] + options["PerMonth"];
  service.MegPeriod = options["PerMonth"] > 0 ? "Month" : "Session";
  service.Block = options["Block"];
  service.MaxCharge = options["Most"];
  service.FreePeriod = options["Free"] > 0;
  NoDisconData = options["Data"];
  ShowErrors = options["HideErrors"] == 0;
  PeriodEnd = Jan(options["To"] > 0 ? static_cast<int>(options["To"]) : 6);
}

// "number day time|notes" of the end of each connection.
std::string Rows() {
  std::string rows;
  for (int i = 1; i <= ConnectionCount; ++i) {
    const ConnectionRecord& c = Connections[i];
    rows += (i > 1 ? "; " : "") + c.Number + FormatDate(c.EndDate, " d ") +
            FormatDate(c.EndTime, "hh:nn:ss") + "|" + c.Notes;
  }
  return rows;
}

// "number connections seconds bytes $dial-up $total" of each slot.
std::string Totals() {
  std::ostringstream totals;
  for (int i = 0; i <= TotalsCount; ++i) {
    const ServiceTotal& s = ServiceTotals[i];
    if (s.Number.empty()) continue;
    totals << (totals.str().empty() ? "" : "; ") << s.Number << " " << s.Connections << " " << s.Seconds
           << " " << s.BytesRead;
    if (s.DialCost > 0 || s.TotalCost > 0) totals << " $" << s.DialCost << " $" << s.TotalCost;
  }
  return totals.str();
}

TEST_F(AnalysisTest, ConnectionsAreRebuiltAndCharged) {
  CostPerHour = 6;
  CostPerMeg = 3;
  DialCost = 0.25;
  service.PenaltyPeriod = "Week";
  service.FreeStart = Clock("18:00");
  service.FreeEnd = Clock("22:00");
  for (const auto& [options, log, rows, totals] : Cases("analysis/Connections")) {
    Set(service, options);
    Run(LogText(log));
    EXPECT_EQ(Rows(), rows) << options << " => " << log;
    EXPECT_EQ(Totals(), totals) << options << " => " << log;
  }
  EXPECT_EQ(host.messages.size(), 0u);
  Set(service, "Block 600");  // 600 x 60 is more than 16 bits hold
  Run(LogText("5 10:00 D555; 5 10:01 C; 5 10:02 U"));
  EXPECT_EQ(host.messages.size(), 2u);
  Set(service, "Option 2 To 120");
  service.PenaltyPeriod = "Day";  // of which 100 are counted behind the first
  Run(LogText("105 10:00 D555; 105 10:01 C; 105 10:02 U; 106 10:00 D555; 106 10:01 C; 106 10:02 U"));
  EXPECT_EQ(host.messages.size(), 4u);
}

TEST_F(AnalysisTest, FreeTimeIsTheOverlapOfTimesOfDay) {
  service.FreePeriod = true;
  for (const auto& [from, to, call, seconds] : Cases("analysis/FreeTimes")) {
    service.FreeStart = Clock(from);
    service.FreeEnd = Clock(to);
    const Int32 free = GetFreeSeconds("777", Clock(call), Clock(call.substr(call.find('-') + 1)));
    EXPECT_EQ(free, std::stoi(seconds)) << from << " to " << to << ": " << call;
  }
}

TEST_F(AnalysisTest, DetailsShowTheSecondsInThePeriodAndTidyNotes) {
  for (const auto& [log, seconds, notes, _] : Cases("analysis/Seconds")) {
    Run(LogText(log));
    EXPECT_EQ(GetConnectionSeconds(1), std::stof(seconds)) << log;
    EXPECT_EQ(Connections[1].Notes, notes) << log;
  }
  EXPECT_EQ(TidyNotes(" - Free:00:10:01 - - 2B x 15Min - - A -"), " Free:00:10:01 - 2B x 15Min - - A ");
}

}  // namespace qel
