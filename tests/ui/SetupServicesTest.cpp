#include "support/WindowTest.h"

namespace qel {

class SetupServicesTest : public WindowTest {
 protected:
  SetupServicesTest() {
    ModemLogDir = folder.Path() + "/";
    ModemLogFile = "ModemLog.txt";
  }

  frmSetup& Open() { return OpenOptions(3); }
  void Scan(const std::string& log) {
    folder.Put(ModemLogFile, log);
    SetupForm->btnScan.UserClick();
  }
  static std::string Dial(const std::string& dialled) {
    return "01-05-1999 10:00:00.00 - Recv: ATD" + dialled + "<cr>\r\n";
  }

  // The list as it is shown, the selected row in brackets.
  static std::string List() {
    std::string all;
    const ListView& list = SetupForm->lstServices;
    for (int row = 1; row <= list.RowCount(); ++row) {
      const std::string text = list.Cell(row, 1) + list.Cell(row, 2);
      all += row == list.SelectedRow() ? "[" + text + "]" : text + ";";
    }
    return all;
  }
  static void PressDelete() {
    KeyPress press{.key = Key::Delete};
    SetupForm->KeyDown(press);
  }
};

TEST_F(SetupServicesTest, ServicesAreAddedAndEditedWhenTheEditorIsConfirmed) {
  frmSetup& window = Open();
  window.btnEdit.Enabled = true;
  window.btnEdit.UserClick();
  EXPECT_TRUE(host.Showed("beep")) << "nothing to edit";
  EXPECT_NE(window.lstServices.Refusal(), "");
  const auto cancel = [] { ServiceForm->Unload(); };
  const auto confirm = [](int service, const char* number) {
    return [=] {
      EXPECT_EQ(NewService, service == UsedServices);
      Services[service].ServiceName = "Home";
      Services[service].ServiceNumber = number;
      ServiceEditCancelled = false;
      ServiceForm->Unload();
    };
  };
  host.actions = {cancel, confirm(0, "123"), cancel, confirm(0, "456")};
  window.btnNew.UserClick();
  EXPECT_EQ(List(), "");
  window.btnNew.UserClick();
  EXPECT_EQ(List(), "[Home  123]");
  EXPECT_EQ(window.lstServices.Row(1).SmallIcon, 3);
  EXPECT_EQ(window.lblServices.Caption(), "1 Services (Max 10)");
  EXPECT_EQ(window.lstServices.Refusal(), "");
  EXPECT_TRUE(window.btnEdit.Enabled && window.btnDelete.Enabled);
  window.btnEdit.UserClick();
  EXPECT_EQ(List(), "[Home  123]");
  window.lstServices.UserDblClick();
  EXPECT_EQ(List(), "[Home  456]");
}

TEST_F(SetupServicesTest, AServiceWithoutARecordIsToldBeforeItIsEdited) {
  Services.Make(0);
  AddService("A", "1", "");
  frmSetup& window = Open();
  window.btnNew.UserClick();
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 9"), std::string::npos);
  EXPECT_FALSE(ServiceForm.IsLoaded());
  window.btnCopy.UserClick();
  EXPECT_EQ(UsedServices, 1);
  EXPECT_EQ(List(), "[A  1]");
}

TEST_F(SetupServicesTest, ADeletedServiceLeavesItsCostsToTheNext) {
  AddService("A", "1", "11").ServiceRate = 1;
  AddService("B", "2", "22").ServiceRate = 2;
  AddService("C", "3", "33").ServiceRate = 3;
  frmSetup& window = Open();
  EXPECT_EQ(window.lblServiceNotice.Caption(), "Without any costs so far: A, B, C");
  host.answers = {Answer::No, Answer::Yes};
  window.btnDelete.UserClick();
  EXPECT_EQ(host.messages.at(0).Text, "Are you sure you want to delete A?");
  EXPECT_EQ(List(), "[A  1]B  2;C  3;");
  EXPECT_TRUE(window.lstServices.HasFocus());
  window.btnDelete.UserClick();
  EXPECT_EQ(List(), "[B  2]C  3;");
  EXPECT_EQ(Services[0].ServiceAltNumber + Services[1].ServiceAltNumber, "2233");
  EXPECT_EQ(std::tuple(Services[0].ServiceRate, Services[1].ServiceRate), std::tuple(1, 2));
  const std::string notice = "Each service that stood below A now has the costs";
  EXPECT_TRUE(window.lblServiceNotice.Caption().starts_with(notice));
  window.lstServices.UserSelect(2);
  PressDelete();
  EXPECT_TRUE(window.lblServiceNotice.Caption().starts_with(notice)) << "nothing stood behind the last one";
  EXPECT_EQ(List(), "[B  2]");
  EXPECT_EQ(host.messages.size(), 2u) << "the key asks nothing";
  window.TabStrip1.UserSelectTab(1);
  PressDelete();
  EXPECT_EQ(UsedServices, 1) << "on another tab";
  window.TabStrip1.UserSelectTab(3);
  PressDelete();
  EXPECT_FALSE(host.Showed("beep") || window.btnDelete.Enabled);
  PressDelete();
  EXPECT_TRUE(host.Showed("beep"));
}

TEST_F(SetupServicesTest, ServicesThatCostNothingAreNamed) {
  AddService("Call", "1", "").DialOption = 1;
  Services[0].DialFixedTariff = .1;
  AddService("Tariff", "2", "").DialOption = 2;
  Services[1].UsedTariffs = 2;
  Services[1].Tariffs[1].PerMinuteRate = .1;
  AddService("Flexi", "3", "").ServiceOption = 2;
  Services[2].FlexRate2 = .1;
  AddService("Data", "4", "").PerMeg = .1;
  AddService("E", "5", "").DialOption = 2;  // the prices of the way of charging that is not in use
  Services[4].DialFixedTariff = Services[4].FlexRate = Services[4].Tariffs[0].DialRate = 1;
  for (const char* name : {"F", "G", "H"}) AddService(name, "6", "");
  frmSetup& window = Open();
  EXPECT_EQ(window.lblServiceNotice.Caption(), "Without any costs so far: E, F, G and 1 more");
  host.actions = {[] {
    Services[4].UsedTariffs = 1;
    ServiceEditCancelled = false;
    ServiceForm->Unload();
  }};
  window.lstServices.UserSelect(5);
  window.btnEdit.UserClick();
  EXPECT_EQ(window.lblServiceNotice.Caption(), "Without any costs so far: F, G, H");
}

TEST_F(SetupServicesTest, ACopyKeepsWhatItsPlaceHeld) {
  ServiceRecord& source = AddService("A", "1", "11");
  source.MaxCharge = 5;
  source.UsedTariffs = 1;
  source.Tariffs[0].Description = "Peak";
  Services[1].ServiceAltNumber = "old";
  Services[1].MaxCharge = 9;
  frmSetup& window = Open();
  window.btnCopy.UserClick();
  EXPECT_EQ(List(), "A  1;[Copy Of A  ]");
  EXPECT_EQ(Services[1].ServiceAltNumber + Services[1].Tariffs[0].Description, "oldPeak");
  EXPECT_EQ(Services[1].MaxCharge, 9);
  EXPECT_FALSE(window.btnCopy.Enabled) << "a service without a number";
  window.lstServices.UserSelect(1);
  EXPECT_TRUE(window.btnCopy.Enabled);
}

TEST_F(SetupServicesTest, TheScanFindsTheNumbersThatNoServiceHas) {
  AddService("A", " 111 ", "222");
  AddService("Dialled Service #7 at work", "333", "");
  frmSetup& window = Open();
  const std::string log = "01-05-1999 10:00:00.00 - Connected\r\n" + Dial("T111") + Dial("T222") +
                          Dial("T0,444") + Dial("T0,444") + Dial("P555") + Dial("T66W6") +
                          "01-05-1999 10:00:00.00 - Sent: ATDT777<cr>\r\n" +
                          "01-05-1999 10:00:00.00 - Recv: ATDT888.";
  Scan(log);
  EXPECT_EQ(List(),
            "A   111 ;Dialled Service #7 at work  333;Dialled Service # 8  0,444;Dialled Service # 9  555;"
            "[Dialled Service # 10  888]");
  EXPECT_EQ(host.messages.at(0).Title, "Scan for Dialled Services");
  EXPECT_EQ(host.messages[0].Text.substr(0, 44), "3 new dialled service(s) found in modem log!");
  EXPECT_EQ(window.lblServices.Caption(), "5 Services (Max 10)");
  EXPECT_TRUE(window.lstServices.HasFocus() && window.fralblServices.Visible);
  EXPECT_FALSE(window.ProgressBar1.Visible);
  Scan(log);
  EXPECT_EQ(host.messages.at(1).Text, "No new dialled services found in modem log!");
  EXPECT_EQ(UsedServices, 5);
}

TEST_F(SetupServicesTest, TheScanStopsAtTheMostServices) {
  MaxServices = 2;
  Open();
  Scan(Dial("T1") + Dial("T2") + Dial("T3"));
  EXPECT_EQ(List(), "Dialled Service # 1  1;[Dialled Service # 2  2]");
  EXPECT_EQ(host.messages.at(0).Text.substr(0, 2), "2 ");
  EXPECT_FALSE(SetupForm->btnScan.Enabled);
}

TEST_F(SetupServicesTest, AWindowClosedDuringTheScanEndsIt) {
  class : public ScriptedHost {
    void Yield() override { SetupForm->Unload(); }
  } impatient;
  Open();
  Scan(Dial("T1") + Dial("T2"));
  EXPECT_EQ(UsedServices, 0);
  EXPECT_TRUE(impatient.messages.empty());
  SetHost(host);
}

TEST_F(SetupServicesTest, AScanIsNotBegunTwiceAndLeavesTheTabThatTheUserWentTo) {
  class : public ScriptedHost {
    void Yield() override {
      EXPECT_EQ(pointer, MousePointer::Hourglass);
      SetupForm->btnScan.UserClick();
      SetupForm->TabStrip1.UserSelectTab(1);
      SetupForm->TabStrip1.UserSelectTab(3);
      EXPECT_FALSE(SetupForm->fralblServices.Visible) << "the bar is in its place";
      SetupForm->TabStrip1.UserSelectTab(1);
    }
  } restless;
  Open();
  Scan(Dial("T1") + Dial("T2"));
  EXPECT_EQ(restless.messages.size(), 1u);
  EXPECT_EQ(restless.pointer, MousePointer::Default);
  EXPECT_EQ(UsedServices, 2);
  EXPECT_FALSE(SetupForm->fralblServices.Visible);
  SetHost(host);
}

TEST_F(SetupServicesTest, AScanWithoutALogIsAnError) {
  frmSetup& window = Open();
  window.btnScan.UserClick();
  EXPECT_NE(host.messages.at(0).Text.find("Error code: 53"), std::string::npos);
  EXPECT_FALSE(window.ProgressBar1.Visible);
}

}  // namespace qel
