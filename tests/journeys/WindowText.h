// A window in words: what a user can see of it, control by control, in the order of its design.
#pragma once

#include <string>
#include <vector>

#include "controls/Form.h"

namespace qel {

// A control, or a text of the design, with the lines below it: the rows of a list, the lines of a text.
struct Shown {
  std::string Name;
  std::vector<std::string> Lines;
  bool operator==(const Shown&) const = default;
};

// Everything visible. UTF-8. A line reads
//
//   btnProcess button "QELMARK - Report for 1 day" off
//
// with what is out of the ordinary behind the caption or text: off, checked, locked, grey, the selection, why
// it refuses its text, a tool tip other than the design's. `withTips` tells every tool tip,
// and how tables mark a row.
std::vector<Shown> WindowText(const Form& form, bool withTips);

}  // namespace qel
