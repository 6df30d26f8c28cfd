#include "settings/Settings.h"

namespace qel {}  // namespace qel
