// Settings and a log that are nearly right: lines of the real kinds whose clock jumps, whose hang-ups are
// missing and whose numbers belong to one service, to two or to none. All forms of the reports tell the same,
// and tell it again when they are asked again.

#include <cmath>
#include <map>

#include "FuzzedProgram.h"
#include "modemlog/LogExamination.h"
#include "reports/DetailLines.h"
#include "reports/ReportExport.h"
#include "settings/Settings.h"
#include "values/DateFormat.h"

namespace qel {
namespace {

const std::string Numbers[] = {"5551234", "5550000", "555", "", "5551234W", "9,,5551234"};
const std::string Periods[] = {"Day", "Week", "Month", "Session", ""};
const std::string Days[] = {"Everyday", "Mon - Fri", "Sat - Mon", "Holidays", "Sunday", "Monday", ""};
const std::string Units[] = {"Per Minute", "Per Second", "Per Unit"};
constexpr double Rates[] = {0, 0.05, 1, 2.5, 99.99};
constexpr Date Times[] = {0, 1 / 1440.0, 8 / 24.0, 0.5, 18 / 24.0, 1439 / 1440.0};
constexpr Int16 Wholes[] = {1, 0, 2, 15, 60};

template <typename Record, typename Value, std::size_t N>
void Make(Choices& choices, Record& record, std::initializer_list<Value Record::*> fields,
          const Value (&values)[N]) {
  for (const auto field : fields) record.*field = choices.OneOf(values);
}

void MakeTariff(Choices& choices, TariffRecord& tariff) {
  using T = TariffRecord;
  Make(choices, tariff, {&T::AppliesDays}, Days);
  Make(choices, tariff, {&T::Unit}, Units);
  Make(choices, tariff, {&T::AppliesTimeStart, &T::AppliesTimeEnd}, Times);
  Make(choices, tariff, {&T::DialRate, &T::PerMinuteRate}, Rates);
  Make(choices, tariff, {&T::UnitMins, &T::UnitSecs}, Wholes);
  tariff.After = choices.OneOf({0, 1, 60, 3600});
}

void MakeService(Choices& choices, ServiceRecord& service) {
  using S = ServiceRecord;
  Make(choices, service, {&S::ServiceName, &S::ServiceNumber, &S::ServiceAltNumber}, Numbers);
  Make(choices, service, {&S::PenaltyPeriod, &S::MegPeriod}, Periods);
  Make(choices, service, {&S::FreeStart, &S::FreeEnd}, Times);
  Make(choices, service, {&S::DialFixedTariff, &S::ServiceRate, &S::FlexRate, &S::FlexRate2}, Rates);
  Make(choices, service, {&S::PerMeg, &S::AfterMeg, &S::MaxCharge, &S::WarningService}, Rates);
  Make(choices, service, {&S::DialOption, &S::ServiceOption, &S::UpToHours, &S::Block}, Wholes);
  Make(choices, service, {&S::WarningOption, &S::WarningMinutes, &S::UsedTariffs}, Wholes);
  service.UsedTariffs = std::min<Int16>(service.UsedTariffs, MaxTariffs);
  service.FreePeriod = choices.Below(2) == 1;
  service.ShowWarnings = service.WarningDisplay = choices.Below(2) == 1;
  for (int i = 0; i < service.UsedTariffs; ++i) MakeTariff(choices, service.Tariffs[i]);
}

void MakeSettings(Choices& choices, FuzzedProgram& program) {
  program.SetDefaults();
  Settings& settings = program.Session.settings;
  settings.CalcCosts = choices.Below(4) != 0;
  settings.ShowErrors = choices.Below(4) != 0;
  settings.MaxConnections = choices.OneOf({200, 3, 1});
  settings.MaxConnectDays = choices.OneOf({2, 1, 31, 0});
  settings.NoDisconDuration = choices.OneOf({600, 0, 7200, 172800});
  settings.NoDisconData = choices.OneOf({0, 64});
  for (double* rate : {&settings.DialCost, &settings.CostPerHour, &settings.CostPerMeg})
    *rate = choices.OneOf(Rates);
  settings.UsedServices = static_cast<int>(choices.Below(4));
  for (int i = 0; i < settings.UsedServices; ++i) MakeService(choices, settings.Services[i]);
  settings.UsedHolidays = static_cast<int>(choices.Below(2));
  settings.Holidays[0] = DateSerial(1999, 1, 5);
}

struct MadeLog {
  std::string text;
  bool runsBackwards = false;
};

MadeLog MakeLog(Choices& choices) {
  static constexpr const char* Lines[] = {
      "Recv: ATDT5551234<cr>", "Connection established",     "Hanging up the modem.",
      "Recv: ATDT5550000<cr>", "Reads : Total: 1234567 ",    "Writes: Total: 99 ",
      "Remote modem hung up.", "Answering the call.",        "Recv: ATDT555<cr>",
      "Recv: ATDT<cr>",        "Recv: ATDTxyz<cr>",          "Modem type: Sample",
      "Reads : Total: none",   "Reads : Total: 2147483648 ", "Recv: ATDT9,,5551234<cr>",
      "Reads : Writes: 7."};
  static constexpr int Steps[] = {1, 20, 0, 59, 61, 1800, 3600, 28801, 86399, 604800, 5000000, -1, -3600};
  MadeLog log;
  const Date begin = DateSerial(1999, 1, 4);
  for (int second = 8 * 3600; !choices.AtEnd() && log.text.size() < 4000;) {
    const int step = choices.OneOf(Steps);
    log.runsBackwards = log.runsBackwards || step < 0;
    second += step;
    const Date day = begin + std::floor(second / 86400.0);
    log.text += FormatDate(day, "mm-dd-yyyy ") + FormatDate(AddSeconds(0, second), "hh:nn:ss") + ".00 - " +
                choices.OneOf(Lines) + "\r\n";
  }
  return log;
}

// The sums of an export's columns. A cost is negative where the free time counted for a connection is longer
// than the connection: one of no duration counts as one over midnight.
std::map<std::string, double> Sums(const Settings& settings, const std::string& csv, bool runsBackwards) {
  bool freeTime = false;
  for (int i = 0; i < settings.UsedServices; ++i) freeTime = freeTime || settings.Services[i].FreePeriod;
  std::vector<std::string> titles;
  std::map<std::string, double> sums;
  std::string cell;
  bool quoted = false, isTitle = true;
  std::size_t column = 0;
  for (const char c : csv) {
    if (c == '"') quoted = !quoted;
    if (quoted || (c != ',' && c != '\n')) {
      cell += c;
      continue;
    }
    if (isTitle) titles.push_back(cell.substr(0, cell.find('\r')));
    Check(runsBackwards || !cell.starts_with('-') || (freeTime && titles.at(column).ends_with("_cost")),
          "nothing is negative");
    sums[titles.at(column++)] += std::atof(cell.c_str());
    cell.clear();
    if (c == '\n') isTitle = (column = 0);
  }
  return sums;
}

void CheckReports(Session& session, bool runsBackwards) {
  const ReportOf report = session.Reported();
  const Settings& settings = session.settings;
  auto summary = Sums(settings, ExportSummary(report, ExportFormat::Csv), runsBackwards);
  const std::string details = ExportDetails(report, ExportFormat::Csv);
  auto parts = Sums(settings, details, runsBackwards);
  const auto connections = static_cast<double>(std::ranges::count(details, '\n')) - 1;
  Check(summary["sessions"] == connections, "each connection is a session");
  for (const char* figure : {"seconds", "bytes_read"}) Check(summary[figure] == parts[figure], figure);
  for (const char* cost : {"dialup_cost", "service_cost", "data_cost", "total_cost"})
    Check(std::abs(summary[cost] - parts[cost]) < 1e-5 * (connections + 1), cost);
  Check(std::abs(parts["dialup_cost"] + parts["service_cost"] + parts["data_cost"] - parts["total_cost"]) <
            1e-5 * (connections + 1),
        "three parts are the total");
  ForEachConnection(report, [](const DetailLine& line) {
    const auto& [call, time, data] = line.Pieces;
    const CallCosts& costs = line.Costs;
    for (const auto& [pieces, cost] :
         {std::pair(&call, costs.DialCostNow), {&time, costs.ServiceCostNow}, {&data, costs.DataCostNow}})
      Check(std::abs(SumOf(*pieces) - cost) < 1e-6, "the pieces are the part");
  });
}

}  // namespace
}  // namespace qel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qel;
  static FuzzedProgram program;
  Choices choices(data, size);
  MakeSettings(choices, program);
  const int firstDay = static_cast<int>(choices.Below(4)), lastDay = static_cast<int>(choices.Below(4));
  const MadeLog log = MakeLog(choices);
  program.OpenLog(log.text);
  Run([&] {
    if (!program.AnalyseAll(firstDay, lastDay)) return;
    CheckReports(program.Session, log.runsBackwards);
    const std::size_t form = size % FuzzedProgram::ReportForms;
    const std::string once = program.ReportIn(form);
    program.ReportIn(form + 1);
    Check(program.ReportIn(form) == once, "a report is the same when it is made again");
  });
  return 0;
}
