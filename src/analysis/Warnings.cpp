#include "analysis/Warnings.h"

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

struct WarningEntry {
  std::string Name;
  std::string Text;
};

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

void ShowWarnings(const std::vector<WarningEntry>& list) {
  std::string text =
      "One or more dialled service(s) have exceeded a user\n"
      "defined threshold for this reporting period.\n\n";
  for (const auto& entry : list) text += entry.Name + " - " + entry.Text + "\n";
  MsgBox({text, "User Defined Warnings", Icon::Information});
}

void CheckAll(const Settings& settings, const AnalysisResult& result) {
  std::vector<WarningEntry> list;
  bool play = false, display = false;
  for (int i = 1; i <= settings.MaxServices; ++i) {
    const ServiceTotal& slot = result.ServiceTotals[i];
    const Int16 index = GetServiceIndex(settings, slot.Number);
    if (index < 0 || !settings.Services[index].ShowWarnings) continue;
    const ServiceRecord& service = settings.Services[index];
    const auto text = ExceededBy(slot, service);
    if (!text) continue;
    list.push_back({service.ServiceName, *text});
    play = play || service.WarningSound;
    display = display || service.WarningDisplay;
  }
  if (play) {
    CurrentHost().PlaySoundFile(settings.WarningSoundFile);
    CurrentHost().Yield();
  }
  if (display) ShowWarnings(list);
}

}  // namespace

void CheckWarnings(const Settings& settings, const AnalysisResult& result) {
  IgnoreErrors([&] { CheckAll(settings, result); });
}

}  // namespace qel
