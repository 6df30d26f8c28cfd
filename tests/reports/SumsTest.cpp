// Parts sum to totals and all forms tell the same, over many logs; what the Summary tells otherwise is said.
#include <cmath>
#include <random>
#include <set>

#include "analysis/AnalysisTest.h"
#include "reports/Documents.h"
#include "reports/HtmlReport.h"
#include "reports/PriceExplained.h"
#include "reports/ReportExport.h"
#include "reports/SummaryDifference.h"
#include "reports/UseByService.h"
#include "settings/UserParameters.h"
#include "support/Expected.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

class Sums : public FreshProgram {
 protected:
  static bool Has(const std::string& setUp, const char* word) {
    return setUp.find(word) != std::string::npos;
  }

  // Two services that may share a number and have limits of hours, of data, or both.
  void Prepare(const std::string& setUp, Int16 block) {
    settings.UsedServices = 0;
    for (const auto& [name, number, other] :
         {std::array{"Beta", "777", Has(setUp, "strict") ? "none" : ""}, std::array{"Alpha", "555", "777"}}) {
      ServiceRecord& service = AddService(name, number, other);
      service.ServiceOption = Has(setUp, "hours") ? 2 : 1;
      service.UpToHours = 1;
      service.FlexRate = service.ServiceRate = 1;
      service.FlexRate2 = 3;
      service.PenaltyPeriod = "Month";
      service.PerMeg = Has(setUp, "data") || Has(setUp, "session") ? 1 : 0;
      service.MegPeriod = Has(setUp, "session") ? "Session" : "Month";
      service.DialOption = 1;
      service.DialFixedTariff = 0.2;
      service.Block = block;
    }
    settings.CostPerHour = settings.CostPerMeg = 0.5;
    settings.MaxConnectDays = 3;
    settings.NoDisconDuration = 7200;
    settings.NoDisconData = 64;
    settings.ShowErrors = !Has(setUp, "hidden");
    SetPeriod(Jan(5), Jan(6));
  }

  // Puts the documents of the latest analysis beside those before.
  void Keep(const std::string& name) {
    for (const auto& [form, format] : {std::pair{".csv", ExportFormat::Csv}, {".json", ExportFormat::Json}}) {
      folder.Put(name + "-summary" + form, ExportSummary(session->Reported(), format));
      folder.Put(name + "-details" + form, ExportDetails(session->Reported(), format));
    }
    folder.Put(name + "-summary.html", SummaryPage(session->Reported(), logFile));
    folder.Put(name + "-details.html", DetailsPage(session->Reported(), logFile));
  }
};

double ToTheCent(double amount) { return std::round(amount * 100) / 100; }

}  // namespace

TEST_F(Sums, HoldInEveryWeekOfTheSample) {
  store.Open(QEL_SOURCE_DIR "/share/samples/QEL.reg", RegistryStore::Access::ReadOnly);
  ReadUserParameters(store, settings, windowSettings);
  FillMissingSettings(settings, windowSettings);
  session->SetCurrentLog(QEL_SOURCE_DIR "/share/samples/ModemLog.txt");
  findings.LogExists = logFile.ArchiveOpen = true;
  session->Examine(LogHealth::Sound);
  std::string told;
  for (Date day = findings.FirstEntryDate - 6; day <= findings.LastEntryDate; ++day) {
    SetPeriod(day, day + 6);
    session->ProcessLog();
    Keep(IsoDate(day));
    for (const auto& line : SummaryDifferences(session->Reported())) told += IsoDate(day) + " " + line + "\n";
  }
  ExpectFile("reports/expected/sample-differences.txt", told);
  EXPECT_EQ(FaultsOfDocuments(folder), "");
}

TEST_F(Sums, HoldInAwkwardLogsAndTheSummarysDifferencesAreTold) {
  int row = 0;
  for (const auto& [setUp, log, sums, said] : Cases("reports/Differences")) {
    ++row;
    for (const Int16 block : {15, 0}) {
      Prepare(setUp, block);
      OpenLog(LogText(log));
      session->ProcessLog();
      if (Has(setUp, "changed")) settings.Services[0].ServiceRate = settings.Services[1].ServiceRate = 2;
      Keep(std::to_string(row) + " blocks of " + std::to_string(block));
    }
    UseByService services(settings);
    ForEachConnection(session->Reported(), [&services](const DetailLine& line) { services.Add(line); });
    const ServiceUse use = services.Totals();
    std::string told;
    for (const auto& line : SummaryDifferences(session->Reported())) told += (told.empty() ? "" : "|") + line;
    EXPECT_EQ(told, said) << setUp << " " << log;
    EXPECT_EQ(std::to_string(use.Sessions) + " " + std::to_string(use.Seconds) + " " +
                  std::to_string(use.BytesRead),
              sums);
  }
  EXPECT_EQ(FaultsOfDocuments(folder), "");
}

TEST_F(AnalysisTest, PiecesSumToEachPartOfTheCostAndTellOfTheWholeCall) {
  std::mt19937 lot;  // the same in every run
  const auto number = [&lot](unsigned limit) { return static_cast<int>(lot() % limit); };
  const auto one = [&lot](std::initializer_list<const char*> texts) {
    return std::string(texts.begin()[lot() % texts.size()]);
  };
  settings.DialCost = -0.1;
  settings.CostPerHour = settings.CostPerMeg = 0.7;
  service.PenaltyPeriod = "Day";
  AnalysisResult result;
  result.Connections.Make(result.ConnectionCount = 50);
  std::set<PieceKind> kinds;
  for (int round = 0; round < 200; ++round) {
    Set("Call .1 Rate 3 Flex .2 Flex2 .7 PerMeg .3 Option " + one({"0", "1", "2"}) + " UpTo " +
        one({"0", "1", "3"}) + " Block " + one({"0", "1", "15"}) + " Most " + one({"0", ".3"}) +
        one({" PerMonth 1", " PerSession 1", ""}));
    std::string tariffs;
    for (int i = number(5); i > 0; --i)
      tariffs += one({"Day 08:00 17:59 .1 .6 Minute 900;", "Eve 18:00 23:59 .05 .3 Second;",
                      "Holidays 00:00 11:59 .2 .1 Unit 3;", "Night 00:00 07:59 .3 .01 Minute;"});
    if (number(4) > 0) SetTariffs(tariffs);
    for (int i = 1; i <= 50; ++i) {
      ConnectionRecord& c = result.Connections[i];
      c.Number = one({"555", "777", "666"});
      c.StartDate = Jan(3 + number(6));
      c.EndDate = c.StartDate + number(3);
      c.StartTime = AddSeconds(0, number(SecondsPerDay));
      c.EndTime = number(2) == 0 ? AddSeconds(0, number(SecondsPerDay)) : c.StartTime;
      c.FreeSeconds = 600 * number(2);
      c.BytesRead = 300000 * number(9);
      c.ReadNoted = true;
    }
    ForEachConnection({result, settings, period}, [&](const DetailLine& line) {
      const ConnectionRecord& c = line.Connection;
      SCOPED_TRACE(tariffs + " round " + std::to_string(round) + ", " + std::to_string(line.Index));
      double shown[3] = {};
      for (const auto& [part, piece, cost, text] : ExplainPrice(settings, line, ToTheCent))
        shown[static_cast<int>(part)] += cost;
      EXPECT_NEAR(shown[0], ToTheCent(line.Costs.DialCostNow), 1e-9);
      EXPECT_NEAR(shown[1], ToTheCent(line.Costs.ServiceCostNow), 1e-9);
      EXPECT_NEAR(shown[2], ToTheCent(line.Costs.DataCostNow), 1e-9);
      const auto& [call, time, data] = line.Pieces;
      for (const auto& [pieces, cost] : {std::pair(&call, line.Costs.DialCostNow),
                                         {&time, line.Costs.ServiceCostNow},
                                         {&data, line.Costs.DataCostNow}}) {
        EXPECT_NEAR(SumOf(*pieces), cost, 1e-9);
        for (const auto& piece : *pieces) kinds.insert(piece.Kind);
      }
      Date at = AtTime(c.StartDate, c.StartTime);
      Int32 left;
      for (const auto& piece : call) {
        if (piece.From == 0) continue;  // no time is told of it
        EXPECT_EQ(SecondsBetween(at, piece.From) / 2, 0) << "a second is left out where the tariff changes";
        at = piece.To;
        left = SecondsBetween(at, AtTime(c.EndDate, c.EndTime));
      }
      EXPECT_LE(left, 1);
    });
  }
  EXPECT_EQ(kinds.size(), 16u) << "of all kinds";
}

}  // namespace qel
