// Fields that take a date in the region's order.
#pragma once

#include "controls/TextControls.h"

namespace qel {

// Gives the field the mask of dates, and the gift of reading what is pasted: dates in the forms that people
// and programs write them in, the international one among them, with or without a time behind them.
void MakeDateField(MaskedEdit& field);

}  // namespace qel
