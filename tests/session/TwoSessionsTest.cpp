// Sessions side by side in one process. Built with the thread sanitizer too.
#include <gtest/gtest.h>
#include <thread>

#include "analysis/PeriodFields.h"
#include "core/ShownDates.h"
#include "reports/DetailReport.h"
#include "reports/HtmlReport.h"
#include "reports/ReportExport.h"
#include "reports/SummaryReport.h"
#include "session/Session.h"
#include "support/AnsweringHost.h"

namespace qel {
namespace {

const std::string Inputs = QEL_SOURCE_DIR "/tests/reports/inputs/";
const std::vector<std::string> Names = {"week", "busy", "answered", "names", "year", "call", "setback"};

void Load(Session& session, const std::string& name) {
  session.store.Open(Inputs + name + ".reg", RegistryStore::Access::ReadOnly);
  session.LoadSettings();
  session.SetCurrentLog(Inputs + name + ".log");
  session.logFile.ArchiveOpen = true;
  session.Examine(LogHealth::Unknown);
  PeriodFields fields(session.period, session.logFile, session.findings);
  fields.SetStarting(format_date(session.findings.FirstEntryDate));
  fields.SetEnding(format_date(session.findings.LastEntryDate));
  fields.checkProcess();
}

std::string Reports(Session& session) {
  const ReportOf of = session.Reported();
  return DisplaySummaryReport(of).ReportText + DisplayDetailReport(of).ReportText +
         ExportDetails(of, ExportFormat::Json) + ExportSummary(of, ExportFormat::Csv) +
         SummaryPage(of, session.logFile) + DetailsPage(of, session.logFile);
}

// What a process gives that has nothing else to do.
std::vector<std::string> Alone() {
  std::vector<std::string> all;
  for (const auto& name : Names) {
    Session session;
    Load(session, name);
    session.ProcessLog();
    all.push_back(Reports(session));
  }
  return all;
}

TEST(TwoSessions, InTurnGiveWhatEachGivesAlone) {
  AnsweringHost host;
  const std::vector<std::string> alone = Alone();
  for (std::size_t i = 0; i < Names.size(); ++i) {
    const std::size_t k = (i + 1) % Names.size();
    EXPECT_NE(alone[i], alone[k]) << Names[i];
    Session one, other;
    Load(one, Names[i]);
    Load(other, Names[k]);
    one.ProcessLog();
    other.ProcessLog();
    for (int time = 0; time < 2; ++time) {
      EXPECT_EQ(Reports(one), alone[i]) << Names[i];
      EXPECT_EQ(Reports(other), alone[k]) << Names[k];
    }
  }
}

TEST(TwoSessions, AtOnceGiveWhatEachGivesAlone) {
  AnsweringHost host;
  const std::vector<std::string> alone = Alone();
  std::vector<std::vector<std::string>> atOnce(2);
  std::vector<std::thread> threads;
  for (auto& reports : atOnce)
    threads.emplace_back([&reports] {
      AnsweringHost own;
      reports = Alone();
    });
  for (auto& thread : threads) thread.join();
  for (const auto& reports : atOnce) EXPECT_EQ(reports, alone);
}

}  // namespace
}  // namespace qel
