#include "ui/TariffList.h"

#include <utility>

#include "analysis/TariffDays.h"
#include "core/ShownMoney.h"
#include "ui/FieldRule.h"
#include "values/DateFormat.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

constexpr char Everyday[] = "Everyday";
constexpr char Holiday[] = "Holidays";

bool IsRange(const TariffRecord& tariff) { return tariff.AppliesDays.find('-') != std::string::npos; }

// Whether two neighbours are to change places: holidays first, then single days, ranges, and everyday last;
// tariffs of the same days by their time. Ranges keep their order among themselves. A pair that one rule has
// exchanged goes on to the next.
using Misplaced = bool (*)(const TariffRecord& first, const TariffRecord& second);
constexpr Misplaced Rules[] = {
    [](const TariffRecord& first, const TariffRecord& second) {
      return first.AppliesDays != Holiday && second.AppliesDays == Holiday;
    },
    [](const TariffRecord& first, const TariffRecord& second) {
      return IsRange(first) && !IsRange(second) && second.AppliesDays != Everyday;
    },
    [](const TariffRecord& first, const TariffRecord& second) {
      return first.AppliesDays == Everyday && second.AppliesDays != Everyday;
    },
    [](const TariffRecord& first, const TariffRecord& second) {
      return DaysInUsersWords(first.AppliesDays) == DaysInUsersWords(second.AppliesDays) &&
             first.AppliesTimeStart > second.AppliesTimeStart;
    },
};

std::string HoursOf(const TariffRecord& tariff) {
  constexpr char Clock[] = "h:mmAM/PM";
  return FormatDate(tariff.AppliesTimeStart, Clock) + " - " + FormatDate(tariff.AppliesTimeEnd, Clock);
}

std::string RateText(double rate) { return FormatCurrency(rate, MoneyPlaces); }

bool ChargesUnits(const TariffRecord& tariff) { return tariff.Unit == "Per Unit"; }
bool ChargesTime(const TariffRecord& tariff) {
  return tariff.Unit == "Per Minute" || tariff.Unit == "Per Second";
}

// After how much time the rate begins, or how long its unit is.
std::string Threshold(const TariffRecord& tariff) {
  if (ChargesTime(tariff))
    return NumberText(tariff.After / 60) + " Mins " + NumberText(tariff.After % 60) + " Secs";
  if (ChargesUnits(tariff))
    return "Unit=" + NumberText(tariff.UnitMins) + "Mins " + NumberText(tariff.UnitSecs) + "Secs";
  return "";
}

}  // namespace

TariffRecord DefaultTariff(double dialCost) {
  TariffRecord tariff;
  tariff.Description = "Default Tariff";
  tariff.AppliesDays = Everyday;
  tariff.AppliesTimeEnd = TimeSerial(23, 59, 0);
  tariff.DialRate = TextToNumber(MoneyField(dialCost));
  tariff.Unit = "Per Minute";
  tariff.UnitMins = 15;
  return tariff;
}

void OrderTariffs(BoundedArray<TariffRecord>& tariffs, int count, Int16& selected) {
  bool exchanged = true;
  while (exchanged) {
    exchanged = false;
    for (int row = 1; row < count; ++row)
      for (const Misplaced misplaced : Rules) {
        TariffRecord& first = tariffs[row - 1];
        TariffRecord& second = tariffs[row];
        if (!misplaced(first, second)) continue;
        std::swap(first, second);
        selected = Int16(selected == row ? row + 1 : row);
        exchanged = true;
      }
  }
}

ListRow TariffRow(const TariffRecord& tariff) {
  return {tariff.Description,
          {tariff.AppliesDays, HoursOf(tariff), RateText(tariff.DialRate), RateText(tariff.PerMinuteRate),
           Threshold(tariff)}};
}

std::string TariffSummary(const TariffRecord& tariff) {
  std::string rate = RateText(tariff.PerMinuteRate);
  if (ChargesTime(tariff))
    rate += (tariff.Unit == "Per Minute" ? " /Min after " : " /Sec after ") + Threshold(tariff) + ".";
  if (ChargesUnits(tariff)) rate += " /Unit (" + Threshold(tariff) + ")";
  return tariff.Description + " - " + tariff.AppliesDays + " " + HoursOf(tariff) + " - " +
         RateText(tariff.DialRate) + " /Call + " + rate;
}

}  // namespace qel
