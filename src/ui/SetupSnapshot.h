// The settings as the options window found them: what closing it without saving puts back.
#pragma once

#include <vector>

#include "settings/Settings.h"

namespace qel {

class SetupSnapshot {
 public:
  // Raises 9 where there are more services than room for them; the rest is kept by then.
  void Take(const Settings& settings);
  // All but NoDisconData and CostPerMeg, whose edits stay, and the holidays, which are edited in a list
  // apart.
  void Restore(Settings& settings) const;

  const Settings& Before() const { return before; }

 private:
  Settings before;
  std::vector<ServiceRecord> services;
};

}  // namespace qel
