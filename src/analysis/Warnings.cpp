#include "analysis/Warnings.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "core/ErrorHandler.h"
#include "core/ShownMoney.h"
#include "core/Surroundings.h"
#include "modemlog/DialledNumber.h"
#include "values/NumberConversion.h"
#include "values/NumberFormat.h"

namespace qel {

namespace {

enum WarningOption { TotalTime = 0, DialupCosts = 1, ServiceCosts = 2, DataRead = 3 };

// The warning's text where the slot's value has reached the service's threshold.
std::optional<std::string> ExceededBy(const ServiceTotal& slot, const ServiceRecord& service) {
  switch (service.WarningOption) {
    case TotalTime:
      if (std::floor(slot.Seconds / 60.0) < service.WarningHours * 60 + service.WarningMinutes) return {};
      return "Time on-line exceeded " + Str(service.WarningHours) + "Hrs " +
             std::to_string(service.WarningMinutes) + "Mins";
    case DialupCosts:
      if (slot.DialCost < service.WarningDialup) return {};
      return "Dial-up costs exceeded " + MoneyText(service.WarningDialup);
    case ServiceCosts:
      if (slot.ServiceCost < service.WarningService) return {};
      return "Service costs exceeded " + MoneyText(service.WarningService);
    case DataRead:
      if (std::floor(slot.BytesRead / 1024.0) < service.WarningData) return {};
      return "Data downloaded exceeded " + FormatNumber(service.WarningData, "#,##0") + "KB";
    default:
      return {};
  }
}

void ShowWarnings(const Settings& settings, const std::vector<Warning>& list) {
  std::string text =
      "One or more dialled service(s) have exceeded a user\n"
      "defined threshold for this reporting period.\n\n";
  for (const auto& warning : list)
    text += settings.Services[warning.Service].ServiceName + " - " + warning.Text + "\n";
  MsgBox({text, "User Defined Warnings", Icon::Information});
}

void CheckAll(const Settings& settings, const AnalysisResult& result) {
  const auto list = ExceededWarnings(settings, result);
  const auto someWants = [&](bool ServiceRecord::*wish) {
    return std::ranges::any_of(list, [&](const Warning& w) { return settings.Services[w.Service].*wish; });
  };
  if (someWants(&ServiceRecord::WarningSound)) {
    CurrentHost().PlaySoundFile(settings.WarningSoundFile);
    CurrentHost().Yield();
  }
  if (someWants(&ServiceRecord::WarningDisplay)) ShowWarnings(settings, list);
}

}  // namespace

std::vector<Warning> ExceededWarnings(const Settings& settings, const AnalysisResult& result) {
  std::vector<Warning> list;
  for (int i = 1; i <= settings.MaxServices; ++i) {
    const ServiceTotal& slot = result.ServiceTotals[i];
    const Int16 index = GetServiceIndex(settings, slot.Number);
    if (index < 0 || !settings.Services[index].ShowWarnings) continue;
    if (const auto text = ExceededBy(slot, settings.Services[index])) list.push_back({index, *text});
  }
  return list;
}

void CheckWarnings(const Settings& settings, const AnalysisResult& result) {
  IgnoreErrors([&] { CheckAll(settings, result); });
}

}  // namespace qel
