// qelreport as a process. The log, its settings and the whole reports are those of tests/reports.
#include <gtest/gtest.h>
#include <utility>

#include "cli/Arguments.h"
#include "cli/Qelreport.h"
#include "platform/CodePage.h"
#include "support/Cases.h"

namespace qel {

namespace {

std::string Entry(const std::string& text) { return "03-01-1999 10:00:00.00 - " + text + "\r\n"; }

}  // namespace

TEST_F(Qelreport, SaysInOneLineWhyThereIsNoReport) {
  folder.Put("empty", "");
  folder.Put("undated", Entry("a") + "\r\nno date\r\n" + Entry("b"));
  folder.Put("time", Entry("a") + "03-01-1999 1x:00:00.00 - Connection established\r\n");
  folder.Put("corrupt", Entry("a\xE9") + Entry("b"));
  PutSettings("corrupt.reg", "\"ModemLogDir\"=\"./\"\r\n\"ModemLogFile\"=\"corrupt\"");
  for (const auto& [status, arguments, line] : Cases<3>("cli/Refusals")) {
    const Result run = Run(arguments);
    EXPECT_EQ(run.status, std::stoi(status)) << arguments;
    EXPECT_EQ(run.err, "qelreport: " + line + "\n" + (run.status == 2 ? UsageText() : ""));
    EXPECT_EQ(run.out, "") << arguments;
  }
  EXPECT_NE(folder.Content("log"), "") << "the log was overwritten";
}

TEST_F(Qelreport, SettingsThatCannotBeReadLeaveTheBuiltInOnes) {
  const std::string store = "home/.config/qel/registry.reg";
  const std::string expected = Run("--log log").out;
  std::filesystem::create_directories(folder.Path(store));
  for (const std::string why : {"Is a directory", "line 2: unexpected text"}) {
    const Result run = Run("--log log");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, expected);
    EXPECT_EQ(run.err,
              "qelreport: cannot read the settings in " + store + ": " + why + "; the built-in ones hold\n");
    std::filesystem::remove(folder.Path(store));
    folder.Put(store, "REGEDIT4\ngarbage");
  }
  EXPECT_EQ(folder.Content(store), "REGEDIT4\ngarbage");
}

TEST_F(Qelreport, WritesTheWholeReportInUtf8) {
  const std::pair<std::string, std::string> cases[] = {{"", "costs-summary.txt"},
                                                       {"--report details", "costs-details.txt"},
                                                       {"--report=details --format csv", "costs-details.csv"},
                                                       {"--format json", "costs-summary.json"}};
  for (const auto& [options, name] : cases) {
    const std::string expected = ToUtf8(folder.Content("source/tests/reports/expected/" + name));
    const std::string arguments =
        "--log log --settings week.reg --from 1999-03-01 --to=1999-03-03 " + options;
    const Result run = Run(arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, expected + (name.ends_with(".txt") ? "\r\n" : ""));
    EXPECT_EQ(Run(arguments + " --output report").out, "");
    EXPECT_EQ(folder.Content("report"), run.out);
  }
}

// Settings of another region cost the same; a tariff whose days nobody can read is told.
TEST_F(Qelreport, CostsTheSameByTheSettingsOfAnyRegion) {
  const std::string settings = folder.Content("week.reg"), day = "\"Tariff1-1AppliesDays\"=\"Everyday\"";
  const auto put = [&](const std::string& days) {
    std::string text = settings;
    folder.Put("week.reg",
               text.replace(text.find(day), day.size(), "\"Tariff1-1AppliesDays\"=\"" + days + '"'));
    folder.Put("german.reg",
               text +
                   "\r\n[HKEY_CURRENT_USER\\Control Panel\\International]\r\n"
                   "\"sDecimal\"=\",\"\r\n\"sThousand\"=\".\"\r\n\"sShortDate\"=\"dd. MM. yyyy\"\r\n"
                   "\"sTimeFormat\"=\"HH.mm.ss\"\r\n\"s1159\"=\"\"\r\n\"s2359\"=\"\"\r\n");
  };
  const std::string arguments = "--log log --format csv --settings ";
  put("Mon - Tue");
  const Result own = Run(arguments + "week.reg");
  EXPECT_EQ(Run(arguments + "german.reg").out, own.out);
  EXPECT_EQ(own.err, "");
  put("Mo - Di");
  const Result foreign = Run(arguments + "week.reg");
  EXPECT_NE(foreign.out, own.out);
  EXPECT_EQ(foreign.err,
            "qelreport: Lighthouse Net 1: the tariff 'Day' never holds: 'Mo - Di' names no days in "
            "English or in the language of this run\n");
}

TEST_F(Qelreport, WritesAPageOfEitherReport) {
  for (const char* report : {"summary", "details"}) {
    const Result run = Run(std::string("--log log --settings week.reg --format html --report ") + report);
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.starts_with("<!DOCTYPE html>") && run.out.ends_with("</html>\n")) << run.out;
    EXPECT_NE(run.out.find("Caf\xC3\xA9 &quot;A&quot;, Ltd"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("<caption>Connections") != std::string::npos, report == std::string("details"));
  }
}

TEST_F(Qelreport, ReportsByTheSettingsThatWereImported) {
  const Result import = Run("--import week.reg");
  EXPECT_EQ(import.status, 0);
  EXPECT_EQ(import.out, "");
  const Result own = Run("--log log"), named = Run("--log log --settings week.reg");
  EXPECT_EQ(own.out, named.out);
  EXPECT_NE(own.out.find("Lighthouse"), std::string::npos) << own.out;
}

TEST_F(Qelreport, TellsOfLimitsThatWereReached) {
  PutSettings("connections.reg", "\"MaxConnections\"=dword:00000003");
  PutSettings("services.reg", "\"MaxServices\"=dword:00000002");
  const Result some = Run("--log log --settings connections.reg --format json");
  EXPECT_EQ(some.status, 3);
  EXPECT_NE(some.err.find("Exceeded Maximum Number of Connections."), std::string::npos) << some.err;
  EXPECT_NE(some.out.find("\"complete\": false"), std::string::npos);
  const Result none = Run("--log log --settings services.reg");
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("Exceeded Maximum Number of Services."), std::string::npos) << none.err;
}

TEST_F(Qelreport, MovesThePeriodIntoTheLog) {
  for (const auto& [arguments, from, to, line] : Cases("cli/Periods")) {
    const Result run = Run("--log log --format json " + arguments);
    const std::string period = "\"from\": \"" + from + "\",\n  \"to\": \"" + to + "\"";
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(period), std::string::npos) << arguments << run.out;
    EXPECT_NE(run.err.find(line), std::string::npos) << arguments << run.err;
    EXPECT_EQ(run.err.empty(), line.empty()) << arguments << run.err;
  }
}

TEST_F(Qelreport, PrintsStatisticsHelpAndVersion) {
  folder.Put("small", Entry("a") + "\r\n" + Entry("b"));  // 28 + 2 + 28 bytes
  EXPECT_EQ(Run("--log small --stats --format json").out,
            "{\"path\": \"small\", \"length\": 58, \"entries\": 2, \"first_entry\": \"1999-03-01\", "
            "\"last_entry\": \"1999-03-01\", \"span_days\": 0}\n");
  EXPECT_NE(Run("--log small --stats --format html").out.find("<td class=\"t\">58 Bytes (0KB)</td>"),
            std::string::npos);
  EXPECT_TRUE(Run("--help").out.starts_with(UsageText()));
  EXPECT_EQ(Run("--version").out, "qelreport 1.0.0\n");
}

}  // namespace qel
