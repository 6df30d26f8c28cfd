// The figures for other programs and on pages, read back as their readers do: parts sum to totals, and all
// forms tell the same.
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "analysis/AnalysisTest.h"
#include "platform/CodePage.h"
#include "reports/HtmlReport.h"
#include "reports/ReportExport.h"
#include "reports/SummaryDifference.h"

namespace qel {

namespace {

using Texts = std::vector<std::string>;
using Record = std::map<std::string, std::string>;
using Records = std::vector<Record>;
using Table = std::vector<Texts>;  // titles, rows, totals

Records CsvRecords(const std::string& csv) {
  Table lines;
  Texts line{""};
  bool quoted = false;
  for (std::size_t i = 0; i < csv.size(); ++i) {
    if (csv[i] == '"' && !(quoted && csv[i + 1] == '"'))
      quoted = !quoted;
    else if (!quoted && csv[i] == ',')
      line.emplace_back();
    else if (!quoted && csv[i] == '\n')
      lines.push_back(std::exchange(line, Texts{""}));
    else if (quoted || csv[i] != '\r')
      line.back() += csv[csv[i] == '"' ? ++i : i];
  }
  Records records;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].size(), lines[0].size()) << csv;
    Record& record = records.emplace_back();
    for (std::size_t k = 0; k < lines[0].size() && k < lines[i].size(); ++k)
      record[lines[0][k]] = lines[i][k];
  }
  return records;
}

// A text of JSON from the quote at `at`, which is moved behind it.
std::string JsonText(const std::string& json, std::size_t& at) {
  std::string text;
  for (++at; json.at(at) != '"'; ++at) {
    if (json[at] != '\\') {
      text += json[at];
    } else if (json[++at] == 'u') {
      text += static_cast<char>(std::stoi(json.substr(at + 1, 4), nullptr, 16));
      at += 4;
    } else {
      text += json[at];
    }
  }
  ++at;
  return text;
}

// Of a record's value, an array's texts divided by blanks, from `at`, which is moved behind it.
std::string JsonValue(const std::string& json, std::size_t& at) {
  if (json.at(at) == '"') return JsonText(json, at);
  const std::size_t begin = at;
  std::string texts;
  if (json[at] != '[') return json.substr(begin, (at = json.find_first_of(",}", at)) - begin);
  while (json.at(at++) != ']')
    if (json.at(at) == '"') texts += (texts.empty() ? "" : " ") + JsonText(json, at);
  return texts;
}

Records JsonRecords(const std::string& json) {
  Records records;
  for (auto at = json.find("\n    {"); at != std::string::npos; at = json.find("\n    {", at)) {
    Record& record = records.emplace_back();
    for (at += 6; json.at(at - 1) != '}'; at += json[at] == ',' ? 2 : 1) {
      const std::string name = JsonText(json, at);
      record[name] = JsonValue(json, at += 2);
    }
  }
  return records;
}

std::string Unescaped(std::string text) {
  const std::pair<const char*, const char*> entities[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}};
  for (const auto& [entity, character] : entities)
    for (auto at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1))
      text.replace(at, std::string(entity).size(), character);
  return text;
}

// The tables of a page by their captions.
std::map<std::string, Table> Tables(const std::string& page) {
  std::map<std::string, Table> tables;
  Table* table = nullptr;
  for (auto at = page.find('<'); at != std::string::npos; at = page.find('<', at + 1)) {
    const auto end = page.find('>', at);
    const std::string text = Unescaped(page.substr(end + 1, page.find('<', end) - end - 1));
    if (page.compare(at, 9, "<caption>") == 0) table = &tables[text];
    if (page.compare(at, 4, "<tr>") == 0) table->emplace_back();
    if (page.compare(at, 4, "<th ") == 0 || page.compare(at, 3, "<td") == 0) table->back().push_back(text);
  }
  return tables;
}

// Of "12:30:05", "$1,200.50", "64K", "6 (01:30:00)".
double ValueOf(std::string cell) {
  std::erase_if(cell, [](char c) { return c == '$' || c == ',' || c == 'K'; });
  int hours = 0, minutes = 0, seconds = 0;
  if (std::sscanf(cell.c_str(), "%d:%d:%d", &hours, &minutes, &seconds) == 3)
    return hours * 3600 + minutes * 60 + seconds;
  return std::atof(cell.c_str());
}

double Sum(const Records& records, const std::string& field) {
  double sum = 0;
  for (const auto& record : records) sum += std::stod(record.at(field));
  return sum;
}

const Texts Costs = {"dialup_cost", "service_cost", "data_cost", "total_cost"};
constexpr double Rounding = 1e-6;

class Sums : public FreshProgram {
 protected:
  // All that has to hold of the reports of the latest analysis.
  void Check() const {
    const Records summary = CsvRecords(ExportSummary(ExportFormat::Csv));
    const Records details = CsvRecords(ExportDetails(ExportFormat::Csv));
    EXPECT_EQ(JsonRecords(ExportSummary(ExportFormat::Json)), summary);
    EXPECT_EQ(JsonRecords(ExportDetails(ExportFormat::Json)), details);
    const double rounding = Rounding * static_cast<double>(details.size() + 1);
    EXPECT_EQ(Sum(summary, "sessions"), static_cast<double>(details.size()));
    for (const char* field : {"seconds", "bytes_read"})
      EXPECT_EQ(Sum(summary, field), Sum(details, field)) << field;
    for (const auto& cost : Costs) EXPECT_NEAR(Sum(summary, cost), Sum(details, cost), rounding) << cost;
    const bool backwards = std::any_of(details.begin(), details.end(),
                                       [](const Record& record) { return record.at("seconds")[0] == '-'; });
    for (const Records* records : {&summary, &details})
      for (const auto& record : *records) {
        EXPECT_NEAR(Sum({record}, Costs[0]) + Sum({record}, Costs[1]) + Sum({record}, Costs[2]),
                    Sum({record}, Costs[3]), rounding);
        for (const auto& [name, value] : record)
          EXPECT_FALSE(!backwards && value.starts_with('-')) << name << value;
      }
    if (backwards) return;
    for (const auto& page : {SummaryPage(), DetailsPage()})
      for (const auto& [caption, table] : Tables(page)) CheckTable(caption, table, summary);
  }

  static void CheckTable(const std::string& caption, const Table& table, const Records& summary) {
    const Texts& totals = table.back();
    for (std::size_t column = 1; column < totals.size(); ++column) {
      if (totals[column].empty()) continue;
      double sum = 0;
      for (std::size_t row = 1; row + 1 < table.size(); ++row) {
        sum += ValueOf(table[row].at(column));
        EXPECT_EQ(table[row][column].find('-'), std::string::npos) << caption;
      }
      const bool money = totals[column].find('$') != std::string::npos,
                 time = totals[column].find(':') != std::string::npos;
      EXPECT_NEAR(ValueOf(totals[column]), sum, money ? 0.006 * static_cast<double>(table.size()) : 0)
          << caption << table[0][column];
      if (money && (table[0][column] == "Cost" || table[0][column] == "Total")) {
        EXPECT_NEAR(ValueOf(totals[column]), Sum(summary, "total_cost"), 0.006) << caption;
      }
      if (time && totals[column].find('(') == std::string::npos) {
        EXPECT_EQ(ValueOf(totals[column]), Sum(summary, "seconds")) << caption;
      }
    }
  }
};

}  // namespace

TEST_F(Sums, HoldInEveryWeekOfTheSample) {
  std::filesystem::create_directory_symlink(QEL_SOURCE_DIR "/tests/reports", folder.Path("reports"));
  Registry.Open(QEL_SOURCE_DIR "/share/samples/QEL.reg", RegistryStore::Access::ReadOnly);
  ReadUserParameters();
  FillMissingSettings();
  SetCurrentLog(QEL_SOURCE_DIR "/share/samples/ModemLog.txt");
  LogExists = ArchiveOpen = true;
  GetLogStats(false);
  std::string told;
  for (Date day = FirstEntryDate - 6; day <= LastEntryDate; ++day) {
    SCOPED_TRACE(IsoDate(day));
    SetPeriod(day, day + 6);
    Analyse();
    Check();
    for (const auto& line : SummaryDifferences()) told += IsoDate(day) + " " + line + "\n";
  }
  EXPECT_EQ(told, folder.Content("reports/expected/sample-differences.txt"));
}

TEST_F(Sums, HoldInAwkwardLogsAndTheSummarysDifferencesAreTold) {
  for (const auto& [errors, log, sums, said] : Cases("reports/Differences")) {
    for (const Int16 block : {0, 15}) {
      SCOPED_TRACE(log + (block > 0 ? ", with blocks" : ""));
      UsedServices = 0;
      for (const auto& [name, number, other] :
           {std::array{"Beta", "777", ""}, std::array{"Alpha", "555", "777"}}) {
        ServiceRecord& service = AddService(name, number, other);
        service.ServiceOption = 2;
        service.UpToHours = 1;
        service.FlexRate = 1;
        service.FlexRate2 = 3;
        service.PenaltyPeriod = service.MegPeriod = "Month";
        service.PerMeg = 1;
        service.DialOption = 1;
        service.DialFixedTariff = 0.2;
        service.Block = block;
      }
      CostPerHour = CostPerMeg = 0.5;
      MaxConnectDays = 3;
      NoDisconDuration = 7200;
      NoDisconData = 64;
      ShowErrors = errors == "yes";
      SetPeriod(Jan(5), Jan(6));
      OpenLog(LogText(log));
      Analyse();
      Check();
      if (block > 0) continue;
      const Records summary = CsvRecords(ExportSummary(ExportFormat::Csv));
      std::string figures, told;
      for (const char* field : {"sessions", "seconds", "bytes_read"})
        figures += (figures.empty() ? "" : " ") + std::to_string(std::lround(Sum(summary, field)));
      EXPECT_EQ(figures, sums);
      for (const auto& line : SummaryDifferences()) told += line + "|";
      EXPECT_EQ(told.empty(), said.empty()) << told;
      std::istringstream parts(said);
      for (std::string part; std::getline(parts, part, '|');)
        EXPECT_NE(told.find(part), std::string::npos) << part << told;
    }
  }
}

// Whatever a user calls a service, every form keeps its row and its name.
TEST_F(Sums, NamesComeThroughAsTheyAre) {
  const Texts names = {"",           "....dots", "a \"b\", c", "</script>&lt;<b>",
                       "line\nfeed", "=1+1\\",   "TOTALS:",    "\x81\x8D\x8F\x90\x9D Caf\xE9"};
  std::string log;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string number = std::to_string(100 + i), hour = "5 " + std::to_string(i + 8);
    AddService(names[i], number, number);
    log += hour + ":00 D" + number + "; " + hour + ":00 C; " + hour + ":30 U; ";
  }
  SetPeriod(Jan(5), Jan(6));
  OpenLog(LogText(log));
  Analyse();
  Check();
  const Records csv = CsvRecords(ExportSummary(ExportFormat::Csv));
  const Table page = Tables(SummaryPage()).at("Services");
  ASSERT_EQ(csv.size(), names.size());
  ASSERT_EQ(page.size(), names.size() + 2);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const std::string name = ToCleanUtf8(Trim(names[i]));
    EXPECT_EQ(csv[i].at("service"), name);
    EXPECT_EQ(page[i + 1][0], name);
  }
  EXPECT_NE(csv[7].at("service").find("\xEF\xBF\xBD Caf\xC3\xA9"), std::string::npos);
}

}  // namespace qel
