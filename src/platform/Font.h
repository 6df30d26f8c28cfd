// A typeface as settings and windows name it.
#pragma once

#include <string>

namespace qel {

struct Font {
  std::string Name;  // empty: the face's own
  float Size = 0;    // points; 0: the face's own
  bool Bold = false;
  bool Italic = false;

  bool operator==(const Font&) const = default;
};

}  // namespace qel
