#include <algorithm>

#include "support/Cases.h"
#include "support/Regions.h"
#include "support/WindowTest.h"
#include "ui/TariffList.h"

namespace qel {

class TariffWindowTest : public WindowTest {
 protected:
  TariffWindowTest() {
    TariffCopy.Make(MaxTariffs - 1);
    TariffCopyCount = 0;
  }

  // A new tariff with this unit and a rate, so that all its fields can be reached.
  frmTariff& NewOne(const std::string& unit = "Per Minute", const std::string& rate = "0.5") {
    TariffForm.Reset();
    NewTariff = true;
    TariffForm->Show();
    TariffForm->lstDialTimeTariffUnit.SetText(unit);
    TariffForm->txtDialTimeTariffMinuteRate.UserText(rate);
    return *TariffForm;
  }
  // The first entry of the working copy.
  frmTariff& Existing(const TariffRecord& tariff) {
    TariffForm.Reset();
    NewTariff = false;
    TariffCopy[0] = tariff;
    TariffCopyCount = 1;
    ServiceForm->lstDialTimeTariff.SetRows({{tariff.Description, {}}});
    ServiceForm->lstDialTimeTariff.SelectRow(1);
    TariffForm->Show();
    return *TariffForm;
  }
  static TextBox& Field(const std::string& name) {
    return dynamic_cast<TextBox&>(*TariffForm->Find("txtDialTimeTariff" + name));
  }
  static void LeaveField() { TariffForm->lstDialTimeTariffDescrip.UserClick(); }
  static std::string Segment() {
    return TariffForm->lstDialTimeTariffDialStart.Text() + "-" + TariffForm->lstDialTimeTariffDialEnd.Text();
  }

  const TariffRecord evening{.Description = "Evening",
                             .AppliesDays = "Mon - Fri",
                             .AppliesTimeStart = TimeSerial(18, 0, 0),
                             .AppliesTimeEnd = TimeSerial(23, 59, 0),
                             .DialRate = 0.1,
                             .PerMinuteRate = 0.0375,
                             .After = 3700,
                             .Unit = "Per Second"};
};

TEST_F(TariffWindowTest, ANewTariffWaitsForACharge) {
  frmTariff& window = NewOne("Per Minute", "0");
  EXPECT_EQ(window.lstDialTimeTariffDescrip.Text() + Segment(), "New Tariff00:00-00:14");
  EXPECT_FALSE(window.btnOK.Enabled);
  EXPECT_EQ(window.lblOKNotice.Caption(), "Give the tariff a cost per call or a rate.");
  Field("DialRate").SetFocus();
  EXPECT_EQ(Field("DialRate").SelText(), "0.00") << "typing replaces it";
  Field("DialRate").UserType("0.0001");
  EXPECT_TRUE(window.btnOK.Enabled);
  window.lstDialTimeTariffDescrip.SetFocus();
  EXPECT_TRUE(window.lstDialTimeTariffDescrip.TextSelected);
  window.lstDialTimeTariffDescrip.UserText("");
  EXPECT_EQ(window.lblOKNotice.Caption(), "Give the tariff a description.");
  EXPECT_FALSE(host.Showed("beep"));
}

TEST_F(TariffWindowTest, FieldsTakeTheirNumbersAndRefuseOthers) {
  for (const auto& [field, unit, typed, seen, left, then] : Cases<6>("ui/TariffFields")) {
    SCOPED_TRACE(field + " " + typed);
    frmTariff& window = NewOne("Per " + unit);
    host.transcript.clear();
    Field(field).UserText(typed);
    EXPECT_EQ(host.Showed("beep"), seen.starts_with("refused"));
    EXPECT_EQ(!Field(field).Refusal().empty(), seen.starts_with("refused"));
    EXPECT_EQ(window.btnOK.Enabled(), seen.ends_with("OK")) << window.lblOKNotice.Caption();
    LeaveField();
    EXPECT_EQ(Field(field).Text(), left);
    EXPECT_EQ(window.btnOK.Enabled(), then == "OK") << window.lblOKNotice.Caption();
  }
}

TEST_F(TariffWindowTest, OnlyTheCostPerCallIsBegunWithTheRegionsDecimalSymbol) {
  Region = Germany();
  NumberDecimal = ",";
  for (const std::string field : {"DialRate", "MinuteRate"}) {
    NewOne();
    Field(field).UserText(field == "DialRate" ? "," : ".");
    EXPECT_EQ(Field(field).Refusal(), "");
    Field(field).UserText(field == "DialRate" ? "." : ",");
    EXPECT_EQ(Field(field).Refusal(), "Enter an amount.") << field;
  }
}

TEST_F(TariffWindowTest, StartAndEndMoveEachOther) {
  frmTariff& window = NewOne();
  for (const auto& [name, chosen, segment, help] : Cases("ui/Segments")) {
    ComboBox& list = name == "End" ? window.lstDialTimeTariffDialEnd : window.lstDialTimeTariffDialStart;
    const auto found = std::find(list.Items().begin(), list.Items().end(), chosen);
    list.UserChoose(static_cast<int>(found - list.Items().begin()));
    EXPECT_EQ(Segment(), segment);
    EXPECT_TRUE(list.HasFocus() && window.lblAssist.Visible);
    EXPECT_EQ(window.lblAssist.Caption(), help);
  }
  LeaveField();
  EXPECT_FALSE(window.lblAssist.Visible);
}

TEST_F(TariffWindowTest, OnlyWhatQualifiesTheRateCanBeEdited) {
  for (const auto& [rate, unit, qualifier] : Cases<3>("ui/Qualifiers")) {
    SCOPED_TRACE(rate + unit);
    const bool threshold = qualifier == "threshold", length = qualifier == "length";
    frmTariff& window = NewOne();
    Field("AfterMins").UserText("7");
    Field("AfterSecs").UserText("1000");
    Field("MinuteRate").UserText(rate);
    window.lstDialTimeTariffUnit.SetText("Per " + unit);
    EXPECT_EQ(Field("AfterMins").Enabled(), threshold);
    EXPECT_EQ(Field("AfterMins").Text(), threshold ? "7" : "0");
    EXPECT_EQ(Field("AfterSecs").Refusal().empty(), !threshold);
    EXPECT_EQ(Field("UnitSecs").Enabled(), length);
    EXPECT_EQ(Field("UnitSecs").BackColor() == SystemColour::WindowBackground, length);
    EXPECT_EQ(window.lblDialTimeTariff5.ForeColor() == SystemColour::WindowText, threshold);
  }
}

TEST_F(TariffWindowTest, ATariffIsShownAndWrittenBack) {
  frmTariff& window = Existing(evening);
  std::string shown = Segment();
  for (const char* field : {"DialRate", "MinuteRate", "AfterMins", "AfterSecs", "UnitMins", "UnitSecs"})
    shown += " " + Field(field).Text();
  EXPECT_EQ(shown, "18:00-23:59 0.10 0.0375 61 40 15 0");
  window.btnOK.UserClick();
  const TariffRecord& written = TariffCopy[0];
  EXPECT_EQ(written.Description + written.AppliesDays + written.Unit, "EveningMon - FriPer Second");
  EXPECT_EQ(std::tuple(written.AppliesTimeStart, written.AppliesTimeEnd),
            std::tuple(evening.AppliesTimeStart, evening.AppliesTimeEnd));
  EXPECT_EQ(std::tuple(written.PerMinuteRate, written.After, written.UnitMins), std::tuple(0.0375, 3700, 15));
  Existing(written);
  Field("AfterMins").UserText("1");
  Field("AfterSecs").UserText("59.5");
  TariffForm->btnOK.UserClick();
  EXPECT_EQ(written.After, 120);
}

TEST_F(TariffWindowTest, AnOldRecordIsFilledUpOrReported) {
  TariffRecord old = evening;
  old.DialRate = old.PerMinuteRate = 0;
  old.Unit = "";
  EXPECT_FALSE(Existing(old).btnOK.Enabled) << "no charge";
  EXPECT_EQ(TariffForm->lstDialTimeTariffUnit.Text(), "Per Minute");
  EXPECT_EQ(Field("AfterMins").Text(), "0") << "no rate";
  EXPECT_TRUE(host.messages.empty());
  old.Unit = "Per Hour";
  Existing(old);
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 5"), std::string::npos);
  EXPECT_EQ(TariffForm->lstDialTimeTariffUnit.Text(), "Per Minute");
}

TEST_F(TariffWindowTest, DaysWrittenInEnglishAreShownAndKeptInAnotherLanguage) {
  std::tie(ShortDayNames, LongDayNames) = std::pair(Germany().ShortDays, Germany().LongDays);
  const std::tuple<const char*, const char*, const char*> cases[] = {{"Mon - Fri", "Mo - Fr", "Mon - Fri"},
                                                                     {"Sa - So", "Sa - So", "Sa - So"},
                                                                     {"Tuesday", "Tuesday", "Tuesday"}};
  for (const auto& [stored, shown, written] : cases) {
    TariffRecord tariff = evening;
    tariff.AppliesDays = stored;
    frmTariff& window = Existing(tariff);
    EXPECT_EQ(window.lstDialTimeTariffDialDays.Text(), shown);
    window.btnOK.UserClick();
    EXPECT_EQ(TariffCopy[0].AppliesDays, written);
    Existing(tariff).lstDialTimeTariffDialDays.UserChoose(8);
    TariffForm->btnOK.UserClick();
    EXPECT_EQ(TariffCopy[0].AppliesDays, "Dienstag") << stored;
  }
  EXPECT_TRUE(host.messages.empty());
  BoundedArray<TariffRecord> tariffs;
  tariffs.Make(1);
  tariffs[0].AppliesDays = "Mon - Fri";
  tariffs[0].AppliesTimeStart = TimeSerial(18, 0, 0);
  tariffs[1].AppliesDays = "Mo - Fr";
  Int16 selected = 1;
  OrderTariffs(tariffs, 2, selected);
  EXPECT_EQ(tariffs[0].AppliesDays, "Mo - Fr") << "the same days go by their time";
}

TEST_F(TariffWindowTest, ANewTariffNeedsANameOfItsOwn) {
  Existing(evening).btnOK.UserClick();
  frmTariff& window = NewOne();
  window.lstDialTimeTariffDescrip.UserText("Evening");
  window.btnOK.UserClick();
  EXPECT_EQ(host.messages.at(0).Text, "A Tariff With This Name Already Exists!");
  EXPECT_TRUE(TariffForm.IsLoaded() && window.lstDialTimeTariffDescrip.HasFocus());
  EXPECT_EQ(TariffCopyCount, 1);
  window.lstDialTimeTariffDescrip.UserText("Night");
  window.btnOK.UserClick();
  EXPECT_TRUE(NewTariff && TariffCopyCount == 2) << "one was added";
  EXPECT_EQ(TariffCopy[1].Description, "Night");
}

TEST_F(TariffWindowTest, OKDoesNothingWhenTheFieldBeingLeftTurnsItOff) {
  frmTariff& window = NewOne();
  Field("AfterMins").UserText("1,000");
  EXPECT_TRUE(window.btnOK.Enabled) << "its leading number passes";
  window.btnOK.UserClick();
  EXPECT_TRUE(TariffForm.IsLoaded() && Field("AfterMins").HasFocus());
  EXPECT_EQ(TariffCopyCount, 0);
  Field("AfterMins").UserText("");
  EXPECT_FALSE(window.btnOK.Enabled) << "empty is no cure until the field is left";
  LeaveField();
  EXPECT_TRUE(window.btnOK.Enabled);
}

}  // namespace qel
