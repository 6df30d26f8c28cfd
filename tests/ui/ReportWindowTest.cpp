// What the report window does between events, and the room that its columns take. The rest is told by
// journeys.
#include <string>
#include <utility>
#include <vector>

#include "platform/Regional.h"
#include "support/FreshProgram.h"
#include "ui/frmReport.h"

namespace qel {

class ReportWindow : public FreshProgram {
 protected:
  ReportWindow() {
    OpenLog(
        "03-01-1999 09:00:00.00 - Recv: ATDT5550100<cr>\r\n"
        "03-01-1999 09:00:30.00 - Connection established at 28800bps.\r\n"
        "03-01-1999 09:20:30.00 - Hanging up the modem.\r\n"
        "03-01-1999 09:20:31.00 - Reads : 524288 bytes\r\n");
    SetPeriod(DateSerial(1999, 3, 1), DateSerial(1999, 3, 2));
    AppPath = folder.Path();
  }

  frmReport& ShowFresh() {
    Analyse();
    window->ShowAnalysis();
    return *window;
  }

  TheForm<frmReport> window;
};

TEST_F(ReportWindow, DetailsShowTheirProgressAndAreBuiltOnce) {
  std::vector<std::string> seen;
  host.yielded = [&] {
    if (window->ProgressBar1.Visible) seen.push_back(std::to_string(window->ProgressBar1.Value()));
    ActiveForm = nullptr;
    window->Activate();  // comes to the front meanwhile
  };
  UserReportPref = 1;
  OpenLog(folder.Content("test.log") +
          "03-02-1999 09:00:30.00 - Connection established at 28800bps.\r\n"
          "03-02-1999 09:20:30.00 - Hanging up the modem.\r\n");
  ShowFresh();
  EXPECT_EQ(seen, (std::vector<std::string>{"50", "100"}));
  EXPECT_TRUE(DetailBuilt && !window->ProgressBar1.Visible && window->StatusBar1.Visible);
  EXPECT_EQ(window->ReportTextBox.Emphasised(), (RichTextBox::Emphasis{1, 24, 14, true, true}));
  bool closed = false;  // closing stores the settings, which yields too
  host.yielded = [&] {
    if (!std::exchange(closed, true)) window->Unload();
  };
  window->mnuDetails.UserClick();
  EXPECT_FALSE(window.IsLoaded()) << "closed while it was built";
}

// At 9 points a digit is about 100 twips wide.
TEST_F(ReportWindow, DatesAndTimesHaveTheirRoomUntilTheUserSetsAWidth) {
  Region.ShortDatePattern = "dddd, d MMMM yyyy";
  frmReport& form = ShowFresh();
  form.mnuDetails.UserClick();
  const auto date = [&form] { return form.ListView1.Columns()[3]; };
  EXPECT_EQ(date().Width, 700) << "what is stored is what it was";
  EXPECT_GT(date().Least, 2000) << "Monday, 1 March 1999";
  EXPECT_GT(form.ListView1.Columns()[4].Least, 1000) << "9:00:30 AM";
  form.ListView1.UserColumnWidth(4, 900);
  EXPECT_EQ(date().Least, 0);
  form.mnuDetails.UserClick();
  EXPECT_EQ(std::pair(date().Width, date().Least), std::pair(900, 0)) << "built again";
}

}  // namespace qel
