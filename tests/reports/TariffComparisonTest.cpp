#include <random>

#include "analysis/Analyse.h"
#include "reports/TariffComparison.h"
#include "reports/UseByService.h"
#include "settings/UserParameters.h"
#include "support/FreshProgram.h"

namespace qel {
namespace {

class Comparison : public FreshProgram {
 protected:
  void Open(const std::string& name) {
    const std::string path = QEL_SOURCE_DIR "/tests/reports/inputs/" + name;
    store.Open(path + ".reg", RegistryStore::Access::ReadOnly);
    session->LoadSettings();
    session->SetCurrentLog(path + ".log");
    logFile.ArchiveOpen = true;
    session->Examine(LogHealth::Sound);
    SetPeriod(findings.FirstEntryDate, findings.LastEntryDate);
  }

  // Costs of all kinds, some of them with gaps.
  void DrawCosts(ServiceRecord& service) {
    const auto draw = [this](int limit) { return static_cast<int>(lot() % static_cast<unsigned>(limit)); };
    const std::string periods[] = {"Day", "Week", "Month", "Session"};
    service.DialOption = 1 + draw(2);
    service.DialFixedTariff = draw(3) * 0.1;
    service.UsedTariffs = draw(4);
    for (int i = 0; i < service.UsedTariffs; ++i)
      service.Tariffs[i] = {.Description = "T" + std::to_string(i),
                            .AppliesDays = draw(3) == 0 ? "Mon - Fri" : "Everyday",
                            .AppliesTimeStart = TimeSerial(draw(24), 0, 0),
                            .AppliesTimeEnd = TimeSerial(23, 59, 0),
                            .DialRate = draw(2) * 0.05,
                            .PerMinuteRate = 0.01 * (1 + draw(5)),
                            .Unit = "Per Minute"};
    service.ServiceOption = 1 + draw(2);
    service.ServiceRate = draw(4);
    service.FlexRate = draw(3);
    service.FlexRate2 = 1 + draw(3);
    service.UpToHours = draw(5);
    service.PenaltyPeriod = periods[draw(3)];
    service.PerMeg = draw(3) * 0.2;
    service.AfterMeg = draw(2);
    service.MegPeriod = periods[draw(4)];
    service.Block = draw(3) * 5;
    service.MaxCharge = draw(3) * 0.5;
    service.FreePeriod = draw(2) == 1;
    service.FreeStart = TimeSerial(draw(24), 0, 0);
    service.FreeEnd = TimeSerial(draw(24), 30, 0);
  }

  std::mt19937 lot;  // the same in every run
};

// Of one service, in a report of settings that somebody has edited.
double CostUnder(const Settings& edited, const LogFile& log, const Period& period, Int16 service) {
  AnalysisResult result = Analyse(edited, log, 1, period);
  double cost = 0;
  ForEachConnection({result, edited, period}, [&](const DetailLine& line) {
    if (KeyOf(edited, line.Connection.Number).Index == service) cost += line.ConnectionCost;
  });
  return cost;
}

TEST_F(Comparison, CostsWhatAReportUnderEditedSettingsSays) {
  int compared = 0, gaps = 0, hidden = 0;
  for (const char* name : {"busy", "week", "names"}) {
    Open(name);
    for (int round = 0; round < 12; ++round) {
      for (int i = 0; i < settings.UsedServices; ++i) DrawCosts(settings.Services[i]);
      settings.ShowErrors = round % 3 != 0;
      session->ProcessLog();
      for (const auto& row : CompareTariffs(session->Reported())) {
        for (const auto& offer : row.Offers) {
          Settings edited = settings;
          edited.Services[row.Service] = SettingsAtOffer(settings, row.Service, offer.Service).Services[0];
          EXPECT_EQ(offer.Cost, CostUnder(edited, logFile, period, row.Service));
          ++compared;
          gaps += offer.Unpriced > 0;
          hidden += offer.Unpriced > 0 && !settings.ShowErrors;
        }
        EXPECT_EQ(row.Offers[static_cast<std::size_t>(int{row.Service})].Cost, row.Cost);
      }
    }
  }
  EXPECT_GT(compared, 500);
  EXPECT_GT(gaps, 50);
  EXPECT_GT(hidden, 0);
}

TEST_F(Comparison, MarksTheCheapestOfferThatPricesEveryCall) {
  Open("busy");
  for (int i = 0; i < settings.UsedServices; ++i) {
    ServiceRecord& service = settings.Services[i];
    service.ServiceOption = 0;
    service.PerMeg = 0;
    service.DialOption = 1;
    service.DialFixedTariff = 1 + i / 2;  // two and two alike
  }
  ServiceRecord& holed = settings.Services[0];
  holed.DialOption = 2;
  holed.UsedTariffs = 0;
  session->ProcessLog();
  const auto compared = CompareTariffs(session->Reported());
  ASSERT_FALSE(compared.empty());
  for (const auto& offer : compared.front().Offers)
    EXPECT_EQ(offer.Cheapest, offer.Service == 1) << int{offer.Service};
  EXPECT_EQ(compared.front().Offers[0].Unpriced, compared.front().Sessions);

  settings.CalcCosts = false;
  EXPECT_TRUE(CompareTariffs(session->Reported()).empty());
}

}  // namespace
}  // namespace qel
