#include "platform/Regional.h"
#include "support/Cases.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

enum Tab { Cost = 3, Warning };

class ServiceWindowTest : public WindowTest {
 protected:
  ServiceWindowTest() { folder.Put("exceeded.wav", "RIFF"); }

  // A new service that lacks nothing.
  frmService& NewOne() {
    ServiceForm.Reset();
    NewService = true;
    ServiceForm->Show();
    ServiceForm->txtNumber.UserText("555");
    host.transcript.clear();
    return *ServiceForm;
  }
  static TextBox& Field(const std::string& name) {
    return dynamic_cast<TextBox&>(*ServiceForm->Find("txt" + name));
  }
  static void Warn(int option) {
    ServiceForm->TabStrip1.UserSelectTab(Warning);
    if (!ServiceForm->chkWarnings.Value) ServiceForm->chkWarnings.UserClick();
    ServiceForm->optWarning[static_cast<std::size_t>(option)].UserClick();
  }
  static std::string Missing() { return ServiceForm->lblOKNotice.Caption(); }
};

TEST_F(ServiceWindowTest, ANewServiceWaitsForItsNumber) {
  DialCost = 0.12345;
  CostPerHour = 2;
  NewService = true;
  ServiceForm->Show();
  frmService& window = *ServiceForm;
  EXPECT_TRUE(window.txtDescription.HasFocus());
  EXPECT_EQ(window.txtDescription.SelText(), "New Service") << "typing replaces it";
  window.txtDescription.UserType("Provider");
  EXPECT_EQ(window.Caption(), "Q E L - Edit Service (Provider)");
  EXPECT_EQ(Missing(), "Enter the dialled number.");
  window.txtNumber.UserText("5");
  EXPECT_TRUE(window.btnOK.Enabled && Missing().empty());
  EXPECT_EQ(window.txtDialFixedTariff.Text() + " " + window.txtServiceFixedRate.Text(), "0.1235 2.00");
  EXPECT_EQ(TariffCopy[0].DialRate, 0.1235);
}

TEST_F(ServiceWindowTest, NumbersHoldWhatCanBeDialled) {
  using Case = std::pair<const char*, bool>;
  for (const auto& [number, dialled] :
       {Case{"pltw", true}, {"0,!^()#*-9", true}, {"+49", false}, {"5 5", false}})
    for (const char* name : {"Number", "AltNumber"}) {
      frmService& window = NewOne();
      Field(name).UserText(number);
      EXPECT_EQ(window.btnOK.Enabled, dialled) << name << " " << number;
      EXPECT_FALSE(host.Showed("beep")) << "a number in the making";
      window.txtDescription.UserClick();
      EXPECT_EQ(Field(name).HasFocus(), !dialled);
      EXPECT_EQ(Field(name).Refusal().empty(), dialled);
      EXPECT_EQ(host.Showed("beep"), !dialled);
    }
}

TEST_F(ServiceWindowTest, OfTwoBadNumbersTheFirstKeepsTheFocus) {
  AddService("Provider", "+1", "+2");
  frmService& window = EditService();
  window.txtNumber.UserClick();
  window.txtAltNumber.UserClick();
  EXPECT_TRUE(window.txtNumber.HasFocus());
}

TEST_F(ServiceWindowTest, FieldsTakeTheirNumbersAndRefuseOthers) {
  for (const auto& [place, field, typed, shown, left, seen] : Cases<6>("ui/ServiceFields")) {
    SCOPED_TRACE(field + " " + typed);
    const auto sees = [&words = seen](const char* word) { return words.find(word) != std::string::npos; };
    const int tab = place[0] - '0', option = place[2] - '0';
    frmService& window = NewOne();
    window.TabStrip1.UserSelectTab(tab);
    if (tab == Cost) window.optServiceCost[static_cast<std::size_t>(option)].UserClick();
    if (tab == Cost && option == 1) window.txtServiceFlexRate2.UserText("1");
    if (tab == Warning) Warn(option);
    Field(field).UserText(typed);
    EXPECT_EQ(host.Showed("beep"), sees("refused"));
    EXPECT_NE(Field(field).Refusal().empty(), sees("refused"));
    EXPECT_EQ(Field(field).Text(), shown);
    EXPECT_EQ(window.btnOK.Enabled, sees("OK")) << Missing();
    host.transcript.clear();
    window.TabStrip1.SetFocus();
    EXPECT_EQ(Field(field).Text(), left);
    EXPECT_EQ(Field(field).HasFocus(), sees("kept"));
    EXPECT_EQ(host.Showed("beep"), sees("kept"));
  }
}

TEST_F(ServiceWindowTest, TheNoticeNamesTheFirstThingThatIsMissing) {
  frmService& window = NewOne();
  for (const char* name : {"Description", "Number", "ServiceFlexHours", "PerMeg", "AfterMeg", "MaxCharge"})
    Field(name).Text = "";
  window.txtAltNumber.Text = "+";
  TariffCopyCount = 0;
  window.optDialCost[1].Value = true;
  window.optServiceCost[1].Value = true;
  window.lstServiceFlexPeriod.SetText("");
  window.txtServiceBlock.Text = "1.5";
  window.chkWarnSound.Value = true;
  window.txtWarningSound.Text = "gone.wav";
  window.chkWarnings.Value = true;
  for (const auto& [missing, field, given] : Cases<3>("ui/MissingParts")) {
    window.TabStrip1.Click();
    EXPECT_EQ(Missing(), missing);
    EXPECT_FALSE(window.btnOK.Enabled) << missing;
    if (!field.empty()) Field(field).Text = given;
    if (missing == "Define a tariff.") TariffCopyCount = 1;
    if (missing.starts_with("Choose")) window.lstServiceFlexPeriod.SetText("Day");
    if (missing.starts_with("The sound")) window.txtWarningSound.Text = folder.Path("exceeded.wav");
  }
  window.TabStrip1.Click();
  EXPECT_TRUE(window.btnOK.Enabled) << Missing();
}

TEST_F(ServiceWindowTest, AServiceThatIsNotCompleteIsNotConfirmed) {
  frmService& window = NewOne();
  window.txtDialFixedTariff.Text = "";  // looked at when it is left
  window.btnOK.UserClick();
  EXPECT_EQ(host.messages.at(0).Title, "WARNING - Incorrect Parameters");
  EXPECT_FALSE(window.btnOK.Enabled);
  window.Unload();
  EXPECT_TRUE(ServiceEditCancelled);
}

TEST_F(ServiceWindowTest, OKWritesTheRecordAndCancelDoesNot) {
  Region.TimeSeparator = " h ";  // no text with it is a time
  ServiceRecord& service = AddService("Provider", "555", "");
  service.DialOption = 2;
  service.UsedTariffs = 1;
  service.Tariffs[5].Description = "Beyond the count";
  service.PenaltyPeriod = "Week";
  service.FreeStart = TimeSerial(22, 15, 0);
  service.WarningData = 1234567;
  for (const bool ok : {false, true}) {
    frmService& window = EditService();
    window.txtDescription.UserText("Other");
    window.TabStrip1.UserSelectTab(Cost);
    window.txtPerMeg.UserText(".25");
    (ok ? window.btnOK : window.btnCancel).UserClick();
    EXPECT_EQ(ServiceEditCancelled, !ok);
    EXPECT_EQ(service.ServiceName, ok ? "Other" : "Provider");
    EXPECT_EQ(service.PerMeg, ok ? 0.25 : 0);
  }
  EXPECT_EQ(std::tuple(service.DialOption, service.ServiceOption), std::tuple(2, 1));
  EXPECT_EQ(service.Tariffs[0].Unit + service.Tariffs[5].Description, "Per MinuteBeyond the count");
  EXPECT_EQ(service.PenaltyPeriod + " " + service.MegPeriod, "Week Month");
  EXPECT_EQ(service.FreeStart, TimeSerial(22, 15, 0));
  EXPECT_EQ(service.WarningData, 1234567);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(ServiceWindowTest, ANumberBeyondItsFieldIsToldAndTheRestIsWritten) {
  frmService& window = NewOne();
  Warn(0);
  window.txtWarningHours.UserText("40000");
  window.btnOK.UserClick();
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 6"), std::string::npos);
  EXPECT_NE(host.messages.at(0).Text.find("Sub: btnOK_Click"), std::string::npos);
  EXPECT_TRUE(Services[0].WarningDisplay && Services[0].ServiceNumber == "555");
}

TEST_F(ServiceWindowTest, ATabEnablesWhatItsOptionUses) {
  frmService& window = NewOne();
  KeyPress tab{.Character = '\t', .Control = true};
  window.KeyDown(tab);
  EXPECT_TRUE(window.txtDialFixedTariff.HasFocus() && !window.lstDialTimeTariff.Enabled);
  EXPECT_EQ(window.lstDialTimeTariff.BackColor, SystemColour::MenuBackground);
  window.optDialCost[1].UserClick();
  EXPECT_TRUE(window.lstDialTimeTariff.HasFocus() && !window.txtDialFixedTariff.Enabled);
  EXPECT_EQ(window.lstDialTimeTariff.BackColor, SystemColour::WindowBackground);
  window.KeyDown(tab);
  EXPECT_TRUE(window.txtServiceFixedRate.HasFocus() && window.txtPerMeg.Enabled);
  EXPECT_FALSE(window.txtServiceFlexRate.Enabled || window.lstFreePeriodEnd.Enabled);
  window.chkFreePeriod.UserClick();
  EXPECT_TRUE(window.lstFreePeriodEnd.Enabled);
  window.KeyDown(tab);
  EXPECT_TRUE(window.TabStrip1.HasFocus()) << "nothing on the page can take it";
  window.chkWarnings.UserClick();
  EXPECT_TRUE(window.txtWarningHours.HasFocus() && !window.txtWarnData.Enabled);
  window.KeyDown(tab);
  EXPECT_TRUE(window.txtDescription.HasFocus());
}

TEST_F(ServiceWindowTest, AWarningIsShownOrSounded) {
  frmService& window = NewOne();
  Warn(0);
  EXPECT_TRUE(window.chkWarnDisplay.Value);
  window.chkWarnDisplay.UserClick();
  EXPECT_TRUE(window.chkWarnDisplay.Value) << "one of the two";
  window.chkWarnSound.UserClick();
  window.chkWarnDisplay.UserClick();
  EXPECT_TRUE(!window.chkWarnDisplay.Value && window.btnWarnPlay.Enabled);
  window.chkWarnSound.UserClick();
  EXPECT_TRUE(window.chkWarnDisplay.Value && !window.btnWarnPlay.Enabled);
  window.chkWarnings.UserClick();
  EXPECT_TRUE(window.btnOK.Enabled) << "no threshold is needed";
}

TEST_F(ServiceWindowTest, TheSoundIsOneForAllServicesAndOutlivesCancel) {
  const std::string sound = folder.Path("\xC5\x82.wav");  // a name that has no place in the text
  folder.Put("\xC5\x82.wav", "RIFF");
  frmService& window = NewOne();
  Warn(0);
  window.chkWarnSound.UserClick();
  host.paths = {std::nullopt, sound};
  window.btnWarnBrowse.UserClick();
  window.btnWarnBrowse.UserClick();
  EXPECT_EQ(window.txtWarningSound.Text(), folder.Path("?.wav"));
  window.txtWarningSound.UserText(folder.Path("gone.wav"));
  window.btnWarnPlay.UserClick();
  EXPECT_EQ(window.txtWarningSound.Text(), folder.Path("?.wav"));
  EXPECT_NE(window.txtWarningSound.Refusal(), "");
  EXPECT_TRUE(host.Showed("beep") && host.Showed("sound: " + sound));
  window.txtWarningSound.UserClick();
  window.TabStrip1.SetFocus();
  EXPECT_EQ(window.txtWarningSound.Refusal(), "") << "the former file was good";
  window.btnCancel.UserClick();
  EXPECT_EQ(WarningSoundFile, sound);
}

}  // namespace
}  // namespace qel
