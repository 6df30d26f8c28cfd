#include "settings/Settings.h"

namespace qel {

Settings settings;
WindowSettings windowSettings;

}  // namespace qel
