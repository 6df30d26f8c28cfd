// The regional values as the settings store and the system's locale give them.
#pragma once

#include "values/Region.h"

namespace qel {

class RegistryStore;

// The values by their three sources: for each one the store's "HKEY_CURRENT_USER\Control Panel\International"
// where it stands there, else the locale of the environment (LC_ALL, LC_TIME, LC_NUMERIC, LC_MONETARY, LANG),
// else that of the United States. The C locale gives nothing. Day and month names never stand in the store. A
// short date or time pattern in the store without its separator brings its own separator along, and a
// separator without its pattern goes into the pattern, so that the two never disagree. Where both stand there
// and differ, the pattern's own separator holds.
RegionalValues GetCurrencySymbolInfo(const RegistryStore& store);

}  // namespace qel
