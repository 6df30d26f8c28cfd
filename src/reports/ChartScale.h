// The lines behind a chart's bars: a few of them, at values that read well.
#pragma once

#include <functional>
#include <string>

namespace qel {

struct ChartScale {
  double Step;                               // from line to line, the first one being zero
  int Steps;                                 // 1 to 4
  std::function<std::string(double)> Label;  // of a line

  double Top() const { return Step * Steps; }
};

// Whole minutes or hours, for values of up to `highest` seconds.
ChartScale TimeScale(double highest);

// Amounts that the user's currency can write.
ChartScale MoneyScale(double highest);

}  // namespace qel
