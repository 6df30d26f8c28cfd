#include "reports/TariffComparison.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <map>
#include <thread>

#include "analysis/Pricing.h"
#include "core/ErrorHandler.h"
#include "core/Surroundings.h"
#include "core/Unattended.h"
#include "modemlog/DialledNumber.h"
#include "reports/DetailLines.h"

namespace qel {

namespace {

// What the analysis worked out by the service's costs when it closed the connection.
void CloseAnew(ConnectionRecord& connection, const Pricing& pricing) {
  ConnectionRecord& c = connection;
  c.FreeSeconds = pricing.GetFreeSeconds(c.Number, c.StartTime, c.EndTime);
  if (c.Kind == ConnectionKind::NoDisconnect) return;
  double cost = 0;
  Attempt([&] { cost = pricing.GetDialupCost(c.Number, c.StartDate, c.StartTime, c.EndDate, c.EndTime); });
  c.Kind = cost < 0 ? ConnectionKind::IncompleteTariff : ConnectionKind::Plain;
}

OfferCost PriceAt(const ReportOf& of, const std::vector<Int16>& calls, int service, int offer) {
  Unattended nobody;
  const Surroundings around(nobody, nobody);
  const Settings settings = SettingsAtOffer(of.settings, service, offer);
  const Pricing pricing(settings, of.period);
  AnalysisResult result;
  result.Connections.Make(Int16(static_cast<int>(calls.size())));
  for (const Int16 call : calls) {
    ConnectionRecord& connection = result.Connections[++result.ConnectionCount];
    connection = of.analysis.Connections[call];
    // A slot that two services share was opened by one of them, and that one's costs were looked at.
    if (GetServiceIndex(of.settings, of.analysis.SlotNumbers[connection.SlotNumber]) == service)
      CloseAnew(connection, pricing);
  }
  OfferCost price{.Service = Int16(offer)};
  ForEachConnection({result, settings, of.period}, [&price](const DetailLine& line) {
    price.Cost += line.ConnectionCost;
    for (const auto part : {&CallCosts::DialCostNow, &CallCosts::ServiceCostNow, &CallCosts::DataCostNow})
      price.Parts.*part += line.Costs.*part;
    price.Unpriced += std::ranges::any_of(
        line.Pieces.Dialup, [](const PricePiece& piece) { return piece.Kind == PieceKind::NoTariff; });
  });
  price.Failed = nobody.Failed;
  return price;
}

// Runs `work` for 0 to `count` - 1, on all processors. What it raises first is raised here.
void ForEachAtOnce(std::size_t count, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  const std::size_t most = std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::exception_ptr> failures(std::min(count, most));
  std::vector<std::thread> threads;
  for (auto& failure : failures)
    threads.emplace_back([&] {
      try {
        for (std::size_t i = next++; i < count; i = next++) work(i);
      } catch (...) {
        failure = std::current_exception();
      }
    });
  for (auto& thread : threads) thread.join();
  for (const auto& failure : failures)
    if (failure) std::rethrow_exception(failure);
}

void MarkCheapest(std::vector<OfferCost>& offers) {
  const auto isWhole = [](const OfferCost& offer) { return offer.Unpriced == 0 && !offer.Failed; };
  const bool someWhole = std::ranges::any_of(offers, isWhole);
  const auto competes = [&](const OfferCost& offer) { return !someWhole || isWhole(offer); };
  double least = std::numeric_limits<double>::infinity();
  for (const auto& offer : offers)
    if (competes(offer)) least = std::min(least, offer.Cost);
  for (auto& offer : offers) offer.Cheapest = competes(offer) && offer.Cost == least;
}

}  // namespace

Settings SettingsAtOffer(const Settings& settings, int service, int offer) {
  Settings one = settings;
  ServiceRecord record = settings.Services[offer];
  const ServiceRecord& called = settings.Services[service];
  record.ServiceName = called.ServiceName;
  record.ServiceNumber = called.ServiceNumber;
  record.ServiceAltNumber = called.ServiceAltNumber;
  one.Services.Make(0);
  one.Services[0] = std::move(record);
  one.MaxServices = 0;
  one.UsedServices = 1;
  return one;
}

std::vector<ServiceComparison> CompareTariffs(const ReportOf& of) {
  std::map<int, std::vector<Int16>> calls;  // by service
  std::map<int, ServiceComparison> own;
  if (of.settings.CalcCosts)
    ForEachConnection(of, [&](const DetailLine& line) {
      const Int16 service = GetServiceIndex(of.settings, line.Connection.Number);
      if (service < 0 || line.Connection.Answered) return;
      ServiceComparison& comparison = own[service];
      comparison.Service = service;
      comparison.Cost += line.ConnectionCost;
      if (comparison.Sessions++ == 0) comparison.Connection = line.Index;
    });
  for (Int16 i = 1; i <= of.analysis.ConnectionCount; ++i) {
    const Int16 service = GetServiceIndex(of.settings, of.analysis.Connections[i].Number);
    if (own.contains(service)) calls[service].push_back(i);
  }
  std::vector<ServiceComparison> compared;
  for (auto& [service, comparison] : own) compared.push_back(std::move(comparison));
  const auto offers = static_cast<std::size_t>(int{of.settings.UsedServices});
  for (auto& comparison : compared) comparison.Offers.resize(offers);
  ForEachAtOnce(compared.size() * offers, [&](std::size_t pair) {
    ServiceComparison& comparison = compared[pair / offers];
    const int service = comparison.Service;
    comparison.Offers[pair % offers] =
        PriceAt(of, calls.at(service), service, static_cast<int>(pair % offers));
  });
  for (auto& comparison : compared) MarkCheapest(comparison.Offers);
  return compared;
}

double AMonth(const Period& period, double cost) {
  constexpr double daysAMonth = 365.2425 / 12;
  return cost / period.PeriodDays * daysAMonth;
}

}  // namespace qel
