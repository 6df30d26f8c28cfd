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
TEST_F(ReportWindow, TextsHaveTheirRoomUntilTheUserSetsAWidth) {
  const auto rooms = [this](const char* dates) {
    Region.ShortDatePattern = dates;
    ShowFresh().mnuDetails.UserClick();
    std::vector<int> least;
    for (const auto& column : window->ListView1.Columns()) least.push_back(column.Least);
    return least;
  };
  EXPECT_EQ(rooms("dddd, d MMMM yyyy"), (std::vector<int>{0, 972, 1296, 2376, 1296, 1080, 756, 0}));
  EXPECT_EQ(rooms("dddd, d MMMM yyyy, dddd, d MMMM")[3], 3600);
  const auto date = [this] { return window->ListView1.Columns()[3]; };
  EXPECT_EQ(date().Width, 700) << "what is stored is what it was";
  window->ListView1.UserColumnWidth(4, 900);
  EXPECT_EQ(date().Least, 0);
  window->mnuDetails.UserClick();
  EXPECT_EQ(std::pair(date().Width, date().Least), std::pair(900, 0)) << "built again";
}

}  // namespace qel
