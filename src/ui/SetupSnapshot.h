// The settings as the options window found them: what closing it without saving puts back.
#pragma once

#include "settings/Settings.h"

namespace qel {

class SetupSnapshot {
 public:
  void Take(const Settings& settings) { before = settings; }
  // All but NoDisconData, CostPerMeg and PreferredModem, whose edits stay, the holidays, which are edited in
  // a list apart, and what was made of services that were not there.
  void Restore(Settings& settings) const;

  const Settings& Before() const { return before; }

 private:
  Settings before;
};

}  // namespace qel
