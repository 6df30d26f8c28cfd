#include <sstream>

#include "support/Cases.h"
#include "support/WindowTest.h"
#include "ui/TariffList.h"

namespace qel {
namespace {

TariffRecord Tariff(const std::string& days, int hour = 0) {
  return {.Description = days + " " + std::to_string(hour),
          .AppliesDays = days,
          .AppliesTimeStart = TimeSerial(hour, 0, 0),
          .Unit = "Per Minute"};
}

TEST(TariffOrder, GoesFromHolidaysToEveryDay) {
  for (const auto& [given, wanted, selection] : Cases<3>("ui/TariffOrder")) {
    BoundedArray<TariffRecord> tariffs;
    tariffs.Make(MaxTariffs - 1);
    int count = 0;
    std::istringstream names(given);
    for (std::string name; std::getline(names >> std::ws, name, ';');)
      tariffs[count++] = Tariff(name.substr(0, name.rfind(' ')), name.back() - '0');
    Int16 selected = selection[0] - '0';
    OrderTariffs(tariffs, count, selected);
    std::string ordered;
    for (int i = 0; i < count; ++i) ordered += (i > 0 ? "; " : "") + tariffs[i].Description;
    EXPECT_EQ(ordered, wanted);
    EXPECT_EQ(selected, selection[2] - '0') << wanted;
  }
}

class ServiceTariffsTest : public WindowTest {
 protected:
  // A service with these tariffs, its list to be seen.
  frmService& With(const std::vector<TariffRecord>& tariffs) {
    ServiceRecord& service = AddService("Provider", "555", "");
    service.DialOption = 2;
    service.UsedTariffs = Int16(tariffs.size());
    for (std::size_t i = 0; i < tariffs.size(); ++i) service.Tariffs[static_cast<int>(i)] = tariffs[i];
    EditService().TabStrip1.UserSelectTab(2);
    host.transcript.clear();
    return *ServiceForm;
  }
  static std::string Selected() {
    const ListView& list = ServiceForm->lstDialTimeTariff;
    return list.SelectedRow() == 0 ? "" : list.Cell(list.SelectedRow(), 1);
  }
};

TEST_F(ServiceTariffsTest, RowsAndTipTellWhatATariffCosts) {
  TariffRecord minutes = Tariff("Mon - Fri", 18);
  minutes.DialRate = 0.1;
  minutes.PerMinuteRate = 0.0375;
  minutes.After = 3700;
  minutes.UnitMins = 15;
  TariffRecord units = minutes, seconds = minutes;
  units.Unit = "Per Unit";
  seconds.Unit = "Per Second";
  frmService& window = With({minutes, units, seconds});
  EXPECT_EQ(
      window.lstDialTimeTariff.Row(1).SubItems,
      (std::vector<std::string>{"Mon - Fri", "6:00PM - 12:00AM", "$0.10", "$0.0375", "61 Mins 40 Secs"}));
  EXPECT_EQ(window.lstDialTimeTariff.Cell(2, 6), "Unit=15Mins 0Secs");
  EXPECT_EQ(window.lstDialTimeTariff.ToolTipText(),
            "Mon - Fri 18 - Mon - Fri 6:00PM - 12:00AM - $0.10 /Call + $0.0375 /Min after 61 Mins 40 Secs.");
  window.lstDialTimeTariff.UserSelect(2);
  EXPECT_EQ(window.lstDialTimeTariff.ToolTipText(),
            "Mon - Fri 18 - Mon - Fri 6:00PM - 12:00AM - $0.10 /Call + $0.0375 /Unit (Unit=15Mins 0Secs)");
  window.lstDialTimeTariff.UserSelect(3);
  EXPECT_NE(window.lstDialTimeTariff.ToolTipText().find("$0.0375 /Sec after 61 Mins 40 Secs."),
            std::string::npos);
}

TEST_F(ServiceTariffsTest, ATariffThatIsConfirmedTakesItsPlace) {
  frmService& window = With({Tariff("Everyday")});
  host.actions = {[] { TariffForm->btnCancel.UserClick(); },
                  [] {
                    TariffForm->lstDialTimeTariffDialDays.SetText("Holidays");
                    TariffForm->txtDialTimeTariffDialRate.UserText("1");
                    TariffForm->btnOK.UserClick();
                  },
                  [] {
                    TariffForm->lstDialTimeTariffDialDays.SetText("Everyday");
                    TariffForm->lstDialTimeTariffDialStart.SetText("08:00");
                    TariffForm->btnOK.UserClick();
                  }};
  window.btnDialTimeTariffNew.UserClick();
  EXPECT_TRUE(TariffCopyCount == 1 && !NewTariff) << "cancelled";
  window.btnDialTimeTariffNew.UserClick();
  EXPECT_EQ(TariffCopy[0].AppliesDays, "Holidays");
  EXPECT_EQ(Selected(), "New Tariff");
  EXPECT_EQ(window.lblDialTimeTariff9.Caption(), "2 Tariffs (Max 10)");
  window.lstDialTimeTariff.UserDblClick();
  EXPECT_EQ(TariffCopy[1].Description, "New Tariff") << "behind the one that begins the day";
  EXPECT_EQ(Selected(), "New Tariff");
}

TEST_F(ServiceTariffsTest, TheLastTariffGoesAndTheServiceWaitsForAnother) {
  frmService& window = With({Tariff("Monday"), Tariff("Monday", 8), Tariff("Everyday")});
  window.lstDialTimeTariff.UserSelect(2);
  for (const char* selected : {"Everyday 0", "Monday 0", ""}) {
    EXPECT_TRUE(window.btnOK.Enabled);
    window.btnDialTimeTariffDelete.UserClick();
    EXPECT_EQ(Selected(), selected);
  }
  EXPECT_FALSE(window.btnOK.Enabled || window.btnDialTimeTariffDelete.Enabled);
  EXPECT_EQ(window.lstDialTimeTariff.ToolTipText(), "User Defined Tariffs");
}

TEST_F(ServiceTariffsTest, ACountBeyondTheTariffsIsToldAndTheRestIsShown) {
  AddService("Provider", "555", "").UsedTariffs = 11;
  EXPECT_EQ(EditService().lblDialTimeTariff9.Caption(), "10 Tariffs (Max 10)");
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 9"), std::string::npos);
  EXPECT_EQ(ServiceForm->txtNumber.Text(), "555");
}

TEST_F(ServiceTariffsTest, TheTenthTariffIsTheLastAndCanStillBeEdited) {
  frmService& window = With(std::vector<TariffRecord>(9, Tariff("Everyday")));
  host.actions = {[] {
                    TariffForm->txtDialTimeTariffDialRate.UserText("1");
                    TariffForm->btnOK.UserClick();
                  },
                  [] { TariffForm->btnCancel.UserClick(); }};
  window.btnDialTimeTariffNew.UserClick();
  window.TabStrip1.Click();
  EXPECT_EQ(window.lblDialTimeTariff9.ForeColor, SystemColour::Warning);
  EXPECT_TRUE(host.Showed("beep") && !window.btnDialTimeTariffNew.Enabled);
  window.lstDialTimeTariff.UserDblClick();
  EXPECT_TRUE(host.actions.empty());
  window.btnDialTimeTariffDelete.UserClick();
  EXPECT_EQ(window.lblDialTimeTariff9.ForeColor, SystemColour::WindowText);
  EXPECT_TRUE(window.btnDialTimeTariffNew.Enabled);
}

}  // namespace
}  // namespace qel
