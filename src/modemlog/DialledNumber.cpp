#include "modemlog/DialledNumber.h"

#include "platform/CodePage.h"
#include "settings/Settings.h"

namespace qel {

std::string CutDialledNumber(std::string_view line) {
  const auto marker = line.find(ModemDial);
  if (marker == std::string_view::npos) return "";
  const std::size_t start = marker + ModemDial.size() + 1;
  if (start + 1 >= line.size()) return "";
  const std::string_view text = line.substr(start, line.size() - start - 1);
  return std::string(text.substr(0, text.find('<')));
}

bool IsValidNumber(const std::string& text) {
  return UpperCase(text).find_first_not_of("PLTW1234567890,!^()#*-") == std::string::npos;
}

Int16 GetServiceIndex(const std::string& number) {
  const std::string_view trimmed = Trim(number);
  for (Int16 i = 0; i < UsedServices; ++i)
    if (trimmed == Services[i].ServiceNumber || trimmed == Services[i].ServiceAltNumber) return i;
  return -1;
}

std::string GetServiceName(const std::string& number) {
  const Int16 index = GetServiceIndex(number);
  return index < 0 ? number : std::string(Trim(Services[index].ServiceName));
}

std::string GetAltNumber(const std::string& number) {
  for (Int16 i = 0; i < UsedServices; ++i) {
    if (Services[i].ServiceNumber == number) return Services[i].ServiceAltNumber;
    if (Services[i].ServiceAltNumber == number) return Services[i].ServiceNumber;
  }
  return "";
}

}  // namespace qel
