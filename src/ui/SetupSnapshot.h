// The settings as the options window found them: what closing it without saving puts back.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "settings/ServiceRecords.h"
#include "settings/SettingField.h"

namespace qel {

class SetupSnapshot {
 public:
  // Raises 9 where there are more services than room for them; the rest is kept by then.
  void Take();
  // All but NoDisconData and CostPerMeg, whose edits stay, and the holidays, which are edited in a list
  // apart.
  void Restore() const;

  // Whether any of these settings is another by now.
  bool Differs(std::initializer_list<SettingPlace> settings) const;

 private:
  using Value = std::variant<std::string, Int16, Int32, float, double, bool, Option>;
  static Value ValueAt(const SettingPlace& place);

  std::vector<std::pair<SettingPlace, Value>> values;
  std::vector<ServiceRecord> services;
};

}  // namespace qel
