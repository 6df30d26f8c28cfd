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
    TariffCopy.Make(MaxTariffs - 1);
    TariffCopyCount = 1;
    NewTariff = false;
    ServiceForm->lstDialTimeTariff.SetRows({{"Evening", {}}});
    ServiceForm->lstDialTimeTariff.SelectRow(1);
  }

  // The first entry of the working copy.
  frmTariff& Edit(const std::string& days) {
    TariffCopy[0] = {.Description = "Evening",
                     .AppliesDays = days,
                     .AppliesTimeEnd = TimeSerial(23, 59, 0),
                     .DialRate = 0.1,
                     .Unit = "Per Minute"};
    TariffForm.Reset();
    TariffForm->Show();
    return *TariffForm;
  }
  std::string Written() {
    TariffForm->btnOK.UserClick();
    return TariffCopy[0].AppliesDays;
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
  TariffCopy[0].AppliesDays = "Mon - Fri";
  TariffCopy[0].AppliesTimeStart = TimeSerial(18, 0, 0);
  TariffCopy[1].AppliesDays = "Mo - Fr";
  Int16 selected = 1;
  OrderTariffs(TariffCopy, 2, selected);
  EXPECT_EQ(TariffCopy[0].AppliesDays, "Mo - Fr") << "the same days go by their time";
}

}  // namespace
}  // namespace qel
