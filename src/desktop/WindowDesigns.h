// The windows of the program: which design belongs to which form.
#pragma once

#include <vector>

#include "desktop/FormFace.h"

namespace qel {

std::vector<WindowDesign> ProgramWindows();

}  // namespace qel
