#include "session/Session.h"

#include "settings/UserParameters.h"

namespace qel {

void Session::LoadSettings() {
  settings = {};
  windowSettings = {};
  ReadUserParameters(store, settings, windowSettings);
  FillMissingSettings(settings, windowSettings);
}

void Session::StoreSettings() { WriteUserParameters(store, settings, windowSettings); }

}  // namespace qel
