#include "ui/ServiceScan.h"

#include <algorithm>

#include "modemlog/DialledNumber.h"
#include "platform/Files.h"
#include "values/CodePage.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr std::string_view ScannedName = "Dialled Service #";

bool HasNumber(const ServiceRecord& service, std::string_view number) {
  return Trim(service.ServiceNumber) == number || Trim(service.ServiceAltNumber) == number;
}

// One above the highest number in use. The blank before it is that of the number's sign.
std::string NextName(const Settings& settings) {
  double highest = 0;
  for (int i = 0; i < settings.UsedServices; ++i) {
    const std::string_view name = settings.Services[i].ServiceName;
    if (const auto at = name.find(ScannedName); at != std::string_view::npos)
      highest = std::max(highest, Val(name.substr(at + ScannedName.size())));
  }
  return std::string(ScannedName) + Str(highest + 1);
}

void AddScannedService(Settings& settings, const std::string& number) {
  ServiceRecord& service = settings.Services[settings.UsedServices];
  service.ServiceName = NextName(settings);
  service.ServiceNumber = number;
  ++settings.UsedServices;
}

}  // namespace

// Markers are kept in capitals, the log has both cases. A number that is taken has no letters to change.
std::optional<std::string> UnknownNumber(const Settings& settings, std::string_view logLine) {
  const std::string line = UpperCase(logLine);
  if (line.find(settings.ModemDial) == std::string::npos) return std::nullopt;
  std::string number = CutDialledNumber(settings, line);
  if (number.find_first_not_of("1234567890,") != std::string::npos) return std::nullopt;
  for (int i = 0; i < settings.UsedServices; ++i)
    if (HasNumber(settings.Services[i], number)) return std::nullopt;
  return number;
}

void ScanForServices(Settings& settings, const std::string& path, const std::function<void()>& found,
                     const std::function<bool(int percent)>& proceed) {
  if (IsStream(path)) Raise(BadFileName);
  LineReader log(path);
  const auto length = static_cast<double>(FileLength(path));
  double read = 0;  // bytes, line ends of one byte assumed
  int shown = 0;
  for (std::string_view line; settings.UsedServices < settings.MaxServices && log.Next(line);) {
    read += static_cast<double>(line.size() + 1);
    const int percent = static_cast<int>(RoundHalfEven(100 * read / length));
    if (percent != shown && percent < 101) {
      shown = percent;
      if (!proceed(percent)) return;
    }
    if (const auto number = UnknownNumber(settings, line)) {
      AddScannedService(settings, *number);
      found();
    }
  }
  log.Close();
}

}  // namespace qel
