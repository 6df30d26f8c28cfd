// Of the options window, what takes a hundred clicks or happens in the midst of its work.

#include "support/WindowTest.h"

namespace qel {
namespace {

enum SetupTab { General = 1, ServicesTab = 3, HolidaysTab = 7 };

class SetupWindowTest : public WindowTest {
 protected:
  SetupWindowTest() {
    ModemLogDir = folder.Path() + "/";
    ModemLogFile = "ModemLog.txt";
    const std::string dialled = "01-05-1999 10:00:00.00 - Recv: ATDT";
    folder.Put(ModemLogFile, dialled + "1<cr>\r\n" + dialled + "2<cr>\r\n");
  }

  static frmSetup& OpenOptions(int tab) {
    SetupForm->Show();
    SetupForm->TabStrip1.UserSelectTab(tab);
    return *SetupForm;
  }
};

TEST_F(SetupWindowTest, TheHundredAndFirstHolidayIsRefused) {
  frmSetup& window = OpenOptions(HolidaysTab);
  for (int i = 0; i < 100; ++i) window.btnAdd.UserClick();  // each moves the calendar on
  EXPECT_FALSE(host.Showed("beep"));
  window.btnAdd.UserClick();
  EXPECT_TRUE(host.Showed("beep"));
  EXPECT_EQ(window.lstHolidays.ListCount(), 100);
  EXPECT_EQ(window.lblUsedHolidays.ForeColor(), SystemColour::Warning);
  EXPECT_NE(window.CalHolidays.Refusal(), "");
  window.lstHolidays.UserDblClick();
  EXPECT_EQ(window.CalHolidays.Refusal(), "") << "there is room again";
  EXPECT_EQ(window.lblUsedHolidays.ForeColor(), SystemColour::WindowText);
}

TEST_F(SetupWindowTest, ClosedDuringTheScanItEndsIt) {
  class : public ScriptedHost {
    void Yield() override { SetupForm->Unload(); }
  } impatient;
  OpenOptions(ServicesTab).btnScan.UserClick();
  EXPECT_EQ(UsedServices, 0);
  EXPECT_TRUE(impatient.messages.empty());
  SetHost(host);
}

TEST_F(SetupWindowTest, AScanIsNotBegunTwiceAndLeavesTheTabThatTheUserWentTo) {
  class : public ScriptedHost {
    void Yield() override {
      EXPECT_EQ(pointer, MousePointer::Hourglass);
      SetupForm->btnScan.UserClick();
      SetupForm->TabStrip1.UserSelectTab(General);
      SetupForm->TabStrip1.UserSelectTab(ServicesTab);
      EXPECT_FALSE(SetupForm->fralblServices.Visible) << "the bar is in its place";
      SetupForm->TabStrip1.UserSelectTab(General);
    }
  } restless;
  OpenOptions(ServicesTab).btnScan.UserClick();
  EXPECT_EQ(restless.messages.size(), 1u);
  EXPECT_EQ(restless.pointer, MousePointer::Default);
  EXPECT_EQ(UsedServices, 2);
  EXPECT_FALSE(SetupForm->fralblServices.Visible);
  SetHost(host);
}

}  // namespace
}  // namespace qel
