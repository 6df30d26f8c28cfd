// The days of tariffs in a language of which the tests hold the names themselves.

#include "support/Regions.h"
#include "support/WindowTest.h"
#include "ui/TariffList.h"

namespace qel {
namespace {

class TariffDays : public WindowTest {
 protected:
  TariffDays() {
    std::tie(ShortDayNames, LongDayNames) = std::pair(Germany().ShortDays, Germany().LongDays);
    TariffCopy.Make(MaxTariffs - 1);
  }

  // The first entry of the working copy.
  frmTariff& Edit(const std::string& days) {
    TariffForm.Reset();
    NewTariff = false;
    TariffCopy[0] = {.Description = "Evening",
                     .AppliesDays = days,
                     .AppliesTimeStart = TimeSerial(18, 0, 0),
                     .AppliesTimeEnd = TimeSerial(23, 59, 0),
                     .DialRate = 0.1,
                     .Unit = "Per Minute"};
    TariffCopyCount = 1;
    ServiceForm->lstDialTimeTariff.SetRows({{"Evening", {}}});
    ServiceForm->lstDialTimeTariff.SelectRow(1);
    TariffForm->Show();
    return *TariffForm;
  }
};

TEST_F(TariffDays, WrittenInEnglishAreShownAndKeptInAnotherLanguage) {
  const std::tuple<const char*, const char*, const char*> cases[] = {{"Mon - Fri", "Mo - Fr", "Mon - Fri"},
                                                                     {"Sa - So", "Sa - So", "Sa - So"},
                                                                     {"Tuesday", "Tuesday", "Tuesday"}};
  for (const auto& [stored, shown, written] : cases) {
    frmTariff& window = Edit(stored);
    EXPECT_EQ(window.lstDialTimeTariffDialDays.Text(), shown);
    window.btnOK.UserClick();
    EXPECT_EQ(TariffCopy[0].AppliesDays, written);
    Edit(stored).lstDialTimeTariffDialDays.UserChoose(8);
    TariffForm->btnOK.UserClick();
    EXPECT_EQ(TariffCopy[0].AppliesDays, "Dienstag") << stored;
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(TariffDays, OfBothLanguagesStandInOneOrder) {
  BoundedArray<TariffRecord> tariffs;
  tariffs.Make(1);
  tariffs[0].AppliesDays = "Mon - Fri";
  tariffs[0].AppliesTimeStart = TimeSerial(18, 0, 0);
  tariffs[1].AppliesDays = "Mo - Fr";
  Int16 selected = 1;
  OrderTariffs(tariffs, 2, selected);
  EXPECT_EQ(tariffs[0].AppliesDays, "Mo - Fr") << "the same days go by their time";
}

}  // namespace
}  // namespace qel
