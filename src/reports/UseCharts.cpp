#include "reports/UseCharts.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "core/ShownDates.h"
#include "core/ShownMoney.h"
#include "reports/HtmlCharts.h"
#include "reports/HtmlPage.h"
#include "settings/Settings.h"
#include "values/DateFormat.h"

namespace qel {

namespace {

constexpr std::size_t MostTicks = 9;
constexpr std::size_t MostStacks = 15;
constexpr std::size_t HoursBetweenTicks = 2;

constexpr std::size_t DaysPerWeek = 7;
constexpr std::size_t MostCalendarDays = 3660;
constexpr Date SomeMonday = 2;  // the first day of all that is one

std::size_t RowOf(Date day) { return static_cast<std::size_t>(Weekday(day) - 1); }

// The month above the week that it begins in, or the period, if that leaves it room; with the year in
// January.
std::string MonthMark(Date day, bool isFirst) {
  constexpr int lastWithRoom = 14;
  const CalendarDay parts = DayOf(day);
  if (parts.day > (isFirst ? lastWithRoom : 1)) return "";
  return FormatDate(day, parts.month == 1 ? "mmm yyyy" : "mmm");
}

std::string TimeText(double seconds) { return FormatTime(static_cast<float>(seconds), false); }

// How the spans of a length are spoken of, and after how many of them a tick reads well.
struct SpanWords {
  const char* Title;
  const char* Column;
  const char* Mask;  // of a span's first day
  std::vector<std::size_t> TickSteps;
};

const SpanWords& WordsFor(SpanLength length) {
  static const SpanWords words[] = {{"By day", "Day", "Short Date", {1, 2, 7, 14}},
                                    {"By week", "Week from", "Short Date", {1, 2, 4, 8, 13}},
                                    {"By month", "Month", "mmm yyyy", {1, 3, 6, 12}},
                                    {"By year", "Year", "yyyy", {1, 2, 5, 10, 20}}};
  return words[static_cast<std::size_t>(length)];
}

std::vector<ChartTick> TicksOf(const UseByTime& use) {
  const SpanWords& words = WordsFor(use.Length());
  const std::size_t count = use.Spans().size();
  const auto fits = [count](std::size_t step) { return count <= step * MostTicks; };
  const auto step = std::find_if(words.TickSteps.begin(), words.TickSteps.end() - 1, fits);
  std::vector<ChartTick> ticks;
  for (std::size_t i = 0; i < count; i += *step)
    ticks.push_back({i, FormatDate(use.Spans()[i].First, words.Mask)});
  return ticks;
}

double Highest(const std::vector<double>& values) { return *std::max_element(values.begin(), values.end()); }
double Sum(const std::vector<double>& values) { return std::accumulate(values.begin(), values.end(), 0.0); }

ChartPanel PanelOf(const char* title, const char* style, std::vector<double> values,
                   const std::vector<std::string>& names, ChartScale (*scale)(double),
                   std::string (*shown)(double), const std::vector<int>& targets) {
  ChartPanel panel{title, style, scale(Highest(values)), std::move(values), {}, targets};
  for (std::size_t i = 0; i < names.size(); ++i)
    panel.Words.push_back(names[i] + ": " + shown(panel.Values[i]));
  return panel;
}

// "Most is 04:12:30 (10/6/1998)."
std::string PeakWords(const ChartPanel& panel) {
  const auto peak = std::max_element(panel.Values.begin(), panel.Values.end()) - panel.Values.begin();
  return panel.Title + ", at most " + panel.Words[static_cast<std::size_t>(peak)] + ".";
}

std::vector<std::string> CellsOf(const ServiceUse& use) {
  return {use.Service, MoneyText(use.DialCost), MoneyText(use.ServiceCost), MoneyText(use.DataCost),
          MoneyText(use.TotalCost)};
}

std::string CostTable(const UseByService& use) {
  HtmlTable table("Cost by service", {{"Service", true}, {"Dial-up"}, {"Service"}, {"Data"}, {"Total"}});
  for (const auto& service : use.Services()) table.AddRow(CellsOf(service));
  return table.Finish(CellsOf(use.Totals()));
}

// The dearest first, no more than a chart has room for.
std::vector<ServiceUse> Dearest(std::vector<ServiceUse> services) {
  std::stable_sort(services.begin(), services.end(),
                   [](const auto& a, const auto& b) { return a.TotalCost > b.TotalCost; });
  if (services.size() > MostStacks) services.erase(services.begin() + MostStacks, services.end());
  return services;
}

// How each is drawn, if there is anything to draw.
using MaybeChart = std::optional<UseChart>;

MaybeChart UseOverPeriod(const UseByTime& use, bool withCosts, double width) {
  const SpanWords& words = WordsFor(use.Length());
  std::vector<std::string> names;
  std::vector<double> seconds, costs;
  std::vector<int> targets;
  for (const auto& span : use.Spans()) {
    names.push_back(FormatDate(span.First, words.Mask));
    seconds.push_back(span.Seconds);
    costs.push_back(span.Cost);
    targets.push_back(span.Connection);
  }
  std::vector<ChartPanel> panels;
  if (Highest(seconds) > 0)
    panels.push_back(PanelOf("Connected time", "time", seconds, names, TimeScale, TimeText, targets));
  if (withCosts && Highest(costs) > 0)
    panels.push_back(PanelOf("Cost", "cost", costs, names, MoneyScale, MoneyText, targets));
  if (panels.empty()) return {};
  std::vector<HtmlColumn> columns = {{words.Column, true}, {"Connected time"}};
  if (withCosts) columns.push_back({"Cost"});
  HtmlTable table(words.Title, columns);
  for (std::size_t i = 0; i < names.size(); ++i)
    table.AddRow({names[i], TimeText(seconds[i]), MoneyText(costs[i])});
  std::string caption = "Time counts on the days in which it passed.";
  if (withCosts) caption += " Cost counts on the day on which the connection began.";
  ChartTexts texts{words.Title, caption, "", width};
  for (const auto& panel : panels) texts.Description += PeakWords(panel) + " ";
  return UseChart{BarChart(texts, panels, TicksOf(use)),
                  table.Finish({"TOTALS:", TimeText(Sum(seconds)), MoneyText(Sum(costs))})};
}

MaybeChart UseByHour(const UseByTime& use, double width) {
  const std::vector<double> seconds(use.HourSeconds().begin(), use.HourSeconds().end());
  if (!(Highest(seconds) > 0)) return {};
  std::vector<std::string> names;
  std::vector<ChartTick> ticks;
  HtmlTable table("By hour of the day", {{"Hour from", true}, {"Connected time"}});
  for (std::size_t hour = 0; hour < seconds.size(); ++hour) {
    names.push_back(FormatDate(TimeSerial(static_cast<int>(hour), 0, 0), "Short Time"));
    table.AddRow({names.back(), TimeText(seconds[hour])});
    if (hour % HoursBetweenTicks == 0) ticks.push_back({hour, names.back()});
  }
  const ChartPanel panel = PanelOf("Connected time", "time", seconds, names, TimeScale, TimeText, {});
  return UseChart{
      BarChart({"By hour of the day", "Time counts in the hours in which it passed, over the whole period.",
                PeakWords(panel), width},
               {panel}, ticks),
      table.Finish({"TOTALS:", TimeText(Sum(seconds))})};
}

// Days by weeks and the weekdays' sums, by cost, or by time where `withCosts` is false or nothing cost
// anything; for periods of more than a week and of no more years than a picture has room for.
MaybeChart UseByCalendar(const UseByTime& use, bool withCosts, double width) {
  const std::vector<UseSpan>& days = use.Days();
  if (days.size() <= DaysPerWeek || days.size() > MostCalendarDays) return {};
  std::array<UseSpan, DaysPerWeek> weekdays{};
  UseSpan sum;
  for (const auto& day : days)
    for (UseSpan* to : {&weekdays[RowOf(day.First)], &sum}) {
      to->Seconds += day.Seconds;
      to->Cost += day.Cost;
    }
  const bool byCost = withCosts && sum.Cost > 0;
  if (!byCost && !(sum.Seconds > 0)) return {};
  const auto value = byCost ? &UseSpan::Cost : &UseSpan::Seconds;
  const auto shown = byCost ? MoneyText : TimeText;

  ChartCalendar calendar{byCost ? "cost" : "time", RowOf(days.front().First), {}, {}};
  HtmlTable table("By day of the week",
                  withCosts ? std::vector<HtmlColumn>{{"Day", true}, {"Connected time"}, {"Cost"}}
                            : std::vector<HtmlColumn>{{"Day", true}, {"Connected time"}});
  std::size_t most = 0;
  for (std::size_t row = 0; row < DaysPerWeek; ++row) {
    calendar.Rows.push_back(FormatDate(SomeMonday + static_cast<Date>(row), "ddd"));
    table.AddRow({FormatDate(SomeMonday + static_cast<Date>(row), "dddd"), TimeText(weekdays[row].Seconds),
                  MoneyText(weekdays[row].Cost)});
    if (weekdays[row].*value > weekdays[most].*value) most = row;
  }
  for (const auto& day : days)
    calendar.Days.push_back(
        {day.*value,
         FormatDate(day.First, "ddd") + " " + FormatDate(day.First, "Short Date") + ": " + shown(day.*value),
         MonthMark(day.First, &day == &days.front()), day.Connection});
  const std::string caption = "Most " + std::string(byCost ? "money was spent" : "time was used") + " on " +
                              FormatDate(SomeMonday + static_cast<Date>(most), "dddd") + ": " +
                              shown(weekdays[most].*value) + ".";
  return UseChart{CalendarChart({"By day of the week", caption, caption, width}, calendar, shown),
                  table.Finish({"TOTALS:", TimeText(sum.Seconds), MoneyText(sum.Cost)})};
}

const std::vector<StackPart> CostParts = {{"Dial-up", "dialup"}, {"Service", "service"}, {"Data", "data"}};

MaybeChart CostByService(const UseByService& use, double width) {
  const std::vector<ServiceUse> drawn = Dearest(use.Services());
  if (drawn.empty() || !(drawn.front().TotalCost > 0)) return {};
  std::vector<Stack> stacks;
  double widest = 0;
  for (const auto& service : drawn) {
    const std::vector<double> costs = {service.DialCost, service.ServiceCost, service.DataCost};
    stacks.push_back({service.Service, costs, MoneyText(service.TotalCost), service.Connection});
    widest = std::max(widest, Sum(costs));
  }
  std::string caption = "Each bar is divided into dial-up, service and data, in this order.";
  if (drawn.size() < use.Services().size())
    caption += " Drawn are the " + std::to_string(drawn.size()) + " dearest of " +
               std::to_string(use.Services().size()) + "; the figures tell of all.";
  const ChartTexts texts{"Cost by service", caption,
                         "The dearest is " + drawn.front().Service + " at " + stacks.front().Total + ".",
                         width};
  return UseChart{StackedBars(texts, CostParts, stacks, MoneyScale(widest)), CostTable(use)};
}

}  // namespace

std::vector<UseChart> UseCharts(const UseByService& services, const UseByTime& times, bool withCosts,
                                double width) {
  std::vector<UseChart> charts;
  for (MaybeChart chart :
       {withCosts ? CostByService(services, width) : std::nullopt, UseOverPeriod(times, withCosts, width),
        UseByCalendar(times, withCosts, width), UseByHour(times, width)})
    if (chart) charts.push_back(std::move(*chart));
  return charts;
}

Drawing OffersDrawing(const Settings& settings, const ServiceComparison& service, double width) {
  const auto nameOf = [&](int index) { return ServiceNameOf(settings.Services[index]); };
  std::vector<Stack> stacks;
  double widest = 0;
  std::string cheapest;
  for (const auto& offer : service.Offers) {
    const std::vector<double> costs = {offer.Parts.DialCostNow, offer.Parts.ServiceCostNow,
                                       offer.Parts.DataCostNow};
    stacks.push_back({nameOf(offer.Service), costs, MoneyText(offer.Cost), service.Connection});
    widest = std::max(widest, Sum(costs));
    if (offer.Cheapest) cheapest += (cheapest.empty() ? "" : ", ") + nameOf(offer.Service);
  }
  const std::string caption = "Cheapest by the costs of " + cheapest + ".";
  return StackedBars({"Calls of " + nameOf(service.Service), caption, caption, width}, CostParts, stacks,
                     MoneyScale(widest));
}

std::vector<Drawing> ReportDrawings(const ReportOf& of, double width) {
  UseByService services(of.settings);
  UseByTime times(of.period.PeriodStart, of.period.PeriodEnd);
  ForEachConnection(of, [&](const DetailLine& line) {
    services.Add(line);
    times.Add(line);
  });
  std::vector<Drawing> drawings;
  for (auto& chart : UseCharts(services, times, of.settings.CalcCosts, width))
    drawings.push_back(std::move(chart.Picture));
  return drawings;
}

}  // namespace qel
