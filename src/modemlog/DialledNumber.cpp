#include "modemlog/DialledNumber.h"

#include "settings/Settings.h"
#include "values/CodePage.h"

namespace qel {

namespace {

// Of the first service with this number or alternate number, or -1.
Int16 IndexOf(const Settings& settings, std::string_view number) {
  for (Int16 i = 0; i < settings.UsedServices; ++i)
    if (number == settings.Services[i].ServiceNumber || number == settings.Services[i].ServiceAltNumber)
      return i;
  return -1;
}

}  // namespace

std::string CutDialledNumber(const Settings& settings, std::string_view line) {
  const auto marker = line.find(settings.ModemDial);
  if (marker == std::string_view::npos) return "";
  const std::size_t start = marker + settings.ModemDial.size() + 1;
  const std::string_view text = line.substr(0, line.size() - 1);
  if (start > text.size()) return "";
  return std::string(text.substr(start, text.find('<', start) - start));
}

bool IsValidNumber(const std::string& text) {
  return UpperCase(text).find_first_not_of("PLTW1234567890,!^()#*-") == std::string::npos;
}

Int16 GetServiceIndex(const Settings& settings, const std::string& number) {
  return IndexOf(settings, Trim(number));
}

std::string GetServiceName(const Settings& settings, const std::string& number) {
  const Int16 index = GetServiceIndex(settings, number);
  return index < 0 ? number : ServiceNameOf(settings.Services[index]);
}

std::string GetAltNumber(const Settings& settings, const std::string& number) {
  const Int16 index = IndexOf(settings, number);
  if (index < 0) return "";
  const ServiceRecord& service = settings.Services[index];
  return number == service.ServiceNumber ? service.ServiceAltNumber : service.ServiceNumber;
}

}  // namespace qel
