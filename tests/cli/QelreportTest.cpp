// qelreport as a process. The log, its settings and the whole reports are those of tests/reports.
#include <gtest/gtest.h>
#include <utility>

#include "cli/Arguments.h"
#include "cli/Qelreport.h"
#include "platform/CodePage.h"

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
  const struct {
    int status;
    const char *arguments, *line;
  } cases[] = {
      {2, "--foo", "unknown option '--foo'"},
      {2, "log", "unexpected argument 'log'; a log is named with --log"},
      {2, "--log", "--log FILE: the value is missing"},
      {2, "--output=", "--output FILE: the value is empty"},
      {2, "--stats=1", "--stats takes no value"},
      {2, "--format xml", "--format is one of text, csv, json, html, not 'xml'"},
      {2, "--from 1999-02-30", "'1999-02-30' is no date; write it as YYYY-MM-DD"},
      {2, "--import week.reg --format html", "--import makes no report and takes no --format"},
      {2, "--log log --import week.reg", "--import makes no report and takes no --log"},
      {1, "--import none", "cannot import none: No such file or directory"},
      {1, "", "home/ModemLog.txt: there is no modem log here; name one with --log FILE"},
      {1, "--settings corrupt.reg",
       "./corrupt: the log is corrupt: it holds a byte that no text log can hold"},
      {1, "--log none", "none: cannot read the log: No such file or directory"},
      {1, "--log home", "home: cannot read the log: Is a directory"},
      {1, "--log /dev/null", "/dev/null: cannot read the log: it must be a file, no pipe or device"},
      {1, "--log empty", "empty: the log is empty"},
      {1, "--log week.reg", "week.reg: this is no modem log: its first or last entry has no date"},
      {1, "--log undated", "undated: entry 2 has no date; the log is damaged and must be repaired first"},
      {1, "--log time", "error 13, Type mismatch (in QELAnalyse, Process, Log Entry: 2)"},
      {1, "--settings none", "cannot read the settings in none: No such file or directory"},
      {1, "--settings log",
       "cannot read the settings in log: line 1: neither \"REGEDIT4\" nor \"Windows Registry Editor Version "
       "5.00\""},
      {1, "--log log --output ./log", "--output ./log would overwrite what the report is made from"},
      {1, "--log log --settings week.reg --output week.reg",
       "--output week.reg would overwrite what the report is made from"},
      {1, "--log log --output none/report", "cannot write to none/report: No such file or directory"},
      {1, "--log log --output /dev/full", "cannot write to /dev/full: No space left on device"},
  };
  for (const auto& c : cases) {
    const Result run = Run(c.arguments);
    EXPECT_EQ(run.status, c.status) << c.arguments;
    EXPECT_EQ(run.err, std::string("qelreport: ") + c.line + "\n" + (c.status == 2 ? UsageText() : ""));
    EXPECT_EQ(run.out, "") << c.arguments;
  }
  EXPECT_NE(folder.Content("log"), "") << "the log was overwritten";
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
  const struct {
    const char *arguments, *from, *to, *line;
  } cases[] = {
      {"", "1999-02-28", "1999-03-06", ""},
      {"--from 1980-01-01", "1999-02-28", "1999-03-06", "start date cannot be less than the first entry"},
      {"--to 2020-01-01", "1999-02-28", "1999-03-06", "end date cannot be greater than the last entry"},
      {"--from 2020-01-01", "1999-03-06", "1999-03-06", "start date cannot be greater than the end date"},
      {"--to 1980-01-01", "1999-02-28", "1999-02-28", "end date cannot be less than the start date"},
      {"--from 1999-03-04 --to 1999-03-02", "1999-03-02", "1999-03-02",
       "the report is of 1999-03-02 to 1999-03-02"},
  };
  for (const auto& c : cases) {
    const Result run = Run(std::string("--log log --format json ") + c.arguments);
    const std::string period = std::string("\"from\": \"") + c.from + "\",\n  \"to\": \"" + c.to + "\"";
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(period), std::string::npos) << c.arguments << run.out;
    EXPECT_NE(run.err.find(c.line), std::string::npos) << c.arguments << run.err;
    EXPECT_EQ(run.err.empty(), *c.line == '\0') << c.arguments << run.err;
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
