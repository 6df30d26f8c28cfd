#include "values/Region.h"

namespace qel {

RegionalValues Region;

void ResetRegion() { Region = RegionalValues{}; }

}  // namespace qel
