// What a transcript calls the controls, and the caption of those that have one.
#pragma once

#include <string>

#include "controls/Form.h"

namespace qel {

// "button", "field", "list", ...
std::string KindOf(const Control& control);

// nullptr for a control without one.
Property<std::string>* CaptionOf(Control& control);

// "btnOK", "optFormat(1)".
std::string NameOf(const Control& control);

}  // namespace qel
