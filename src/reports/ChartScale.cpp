#include "reports/ChartScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/ShownMoney.h"
#include "values/NumberFormat.h"
#include "values/Region.h"

namespace qel {

namespace {

constexpr int MostSteps = 4;
constexpr double Minute = 60, Hour = 3600;

// 1, 2, 2.5 or 5 times a power of ten times `least`, and a whole number of it.
double DecimalStep(double highest, double least) {
  for (double decade = least;; decade *= 10)
    for (const double times : {1.0, 2.0, 2.5, 5.0})
      if (!(highest > MostSteps * times * decade) && !(times == 2.5 && decade == least))
        return times * decade;
}

double TimeStep(double highest) {
  for (const double minutes : {1, 5, 10, 15, 30, 60, 120, 180, 360, 720, 1440})
    if (highest <= MostSteps * minutes * Minute) return minutes * Minute;
  return DecimalStep(highest / Hour, 10) * Hour;
}

ChartScale ScaleBy(double step, double highest, std::function<std::string(double)> label) {
  const int steps = static_cast<int>(std::clamp(std::ceil(highest / step), 1.0, double{MostSteps}));
  return {step, steps, std::move(label)};
}

}  // namespace

ChartScale TimeScale(double highest) {
  const double step = TimeStep(highest);
  const bool wholeHours = step >= Hour;
  return ScaleBy(step, highest, [wholeHours](double seconds) {
    return FormatNumber(seconds / (wholeHours ? Hour : Minute), "#,##0") + (wholeHours ? " h" : " min");
  });
}

ChartScale MoneyScale(double highest) {
  return ScaleBy(DecimalStep(highest, std::pow(10.0, -Region.CurrencyDigits)), highest, MoneyText);
}

}  // namespace qel
