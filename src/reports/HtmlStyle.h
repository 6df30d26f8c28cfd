// The look of the pages.
#pragma once

namespace qel {

// Light, dark by the reader's preference, and plain on paper. Holds none of the characters that XML reserves.
extern const char PageStyle[];

}  // namespace qel
