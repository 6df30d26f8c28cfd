// The days of tariffs in a language of which the tests hold the names themselves.

#include "support/Regions.h"
#include "support/WindowTest.h"
#include "ui/TariffList.h"

namespace qel {
namespace {

class TariffDays : public WindowTest {
 protected:
  TariffDays() {
    Region.ShortDays = Germany().ShortDays;
    Region.LongDays = Germany().LongDays;
    tariffs.Make(MaxTariffs - 1);
    windows->ServiceForm->TariffCopyCount = 1;
    windows->ServiceForm->lstDialTimeTariff.SetRows({{"Evening", {}}});
    windows->ServiceForm->lstDialTimeTariff.SelectRow(1);
  }

  BoundedArray<TariffRecord>& tariffs = windows->ServiceForm->TariffCopy;  // the working copy

  // Its first entry.
  frmTariff& Edit(const std::string& days) {
    tariffs[0] = {.Description = "Evening",
                  .AppliesDays = days,
                  .AppliesTimeEnd = TimeSerial(23, 59, 0),
                  .DialRate = 0.1,
                  .Unit = "Per Minute"};
    windows->TariffForm->Show();
    return *windows->TariffForm;
  }
  std::string Written() {
    windows->TariffForm->btnOK.UserClick();
    return tariffs[0].AppliesDays;
  }
};

TEST_F(TariffDays, WrittenInEnglishAreShownAndKeptInAnotherLanguage) {
  const std::pair<const char*, const char*> cases[] = {
      {"Mon - Fri", "Mo - Fr"}, {"Sa - So", "Sa - So"}, {"Tuesday", "Tuesday"}};
  for (const auto& [stored, shown] : cases) {
    EXPECT_EQ(Edit(stored).lstDialTimeTariffDialDays.Text(), shown);
    EXPECT_EQ(Written(), stored);
    Edit(stored).lstDialTimeTariffDialDays.UserChoose(8);
    EXPECT_EQ(Written(), "Dienstag") << stored;
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(TariffDays, OfBothLanguagesStandInOneOrder) {
  tariffs[0].AppliesDays = "Mon - Fri";
  tariffs[0].AppliesTimeStart = TimeSerial(18, 0, 0);
  tariffs[1].AppliesDays = "Mo - Fr";
  Int16 selected = 1;
  OrderTariffs(tariffs, 2, selected);
  EXPECT_EQ(tariffs[0].AppliesDays, "Mo - Fr") << "the same days go by their time";
}

}  // namespace
}  // namespace qel
