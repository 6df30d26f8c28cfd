// A drawing to show and to print: markup, what stands where in it, and the words around it. Who draws it
// gives its classes their colours.
//
// Lengths are units of the drawing, about a pixel each. Texts are Windows-1252.
#pragma once

#include <string>
#include <vector>

namespace qel {

// A bar, a part of one, or a day: its box, what it says, and what it leads to.
struct DrawnPlace {
  double X, Y, Width, Height;
  std::string Words;
  int Target = 0;  // number of a connection; 0 for none

  bool operator==(const DrawnPlace&) const = default;
};

struct Drawing {
  std::string Heading, Caption;
  double Width = 0, Height = 0;
  std::string Markup;  // one <svg> element, in UTF-8
  std::vector<DrawnPlace> Places;

  bool operator==(const Drawing&) const = default;
};

}  // namespace qel
