// What a window's design and its form do not have in common. A design is whole when there is nothing.
#pragma once

#include <string>
#include <vector>

#include "controls/Form.h"

namespace qel {

// One line a fault: controls without a widget, tool buttons without an action, and actions and widgets that
// show or take something but belong to no control. The form must be loaded and have a face.
std::vector<std::string> MissingBindings(const Form& form);

}  // namespace qel
