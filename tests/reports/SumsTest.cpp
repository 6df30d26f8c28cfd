// Parts sum to totals and all forms tell the same, over many logs; what the Summary tells otherwise is said.
#include "analysis/AnalysisTest.h"
#include "reports/Documents.h"
#include "reports/HtmlReport.h"
#include "reports/ReportExport.h"
#include "reports/SummaryDifference.h"
#include "reports/UseByService.h"
#include "settings/UserParameters.h"
#include "support/Expected.h"

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

}  // namespace qel
