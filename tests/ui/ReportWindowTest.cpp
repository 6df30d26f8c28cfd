// The report window as its user has it, over the analysis of a small log.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Regional.h"
#include "settings/Registry_Functions.h"
#include "support/Cases.h"
#include "support/ErrorOf.h"
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
  frmReport& OpenOld() {
    folder.Put("M\xC3\xA4rz.txt", old);
    window->OpenReport(folder.Path("M\xC3\xA4rz.txt"));
    return *window;
  }
  static std::vector<int> Widths(const frmReport& form) {
    std::vector<int> widths;
    for (const auto& column : form.ListView1.Columns()) widths.push_back(column.Width);
    return widths;
  }
  static std::string Status(const frmReport& form) {
    return form.StatusBar1.Panels()[0] + "|" + form.StatusBar1.Panels()[1] + "|" +
           form.StatusBar1.Panels()[2];
  }
  // The menu items by name, the buttons by position.
  static std::string Disabled(frmReport& form) {
    std::string names;
    for (const Control* control : form.Controls())
      if (!control->Enabled) names += " " + control->Name();
    for (int button = 1; button <= 16; ++button)
      if (!form.Toolbar1.Button(button).Enabled) names += " " + std::to_string(button);
    return names.empty() ? "" : names.substr(1);
  }
  static std::string StoredWord(const std::string& name) {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + "\\ViewReport", name));
  }

  const std::string old = " QELMARK - Details Report\r\n\r\n Caf\xE9\n";  // a report of another day
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
  bool closed = false;  // closing stores the settings, which yields too
  host.yielded = [&] {
    if (!std::exchange(closed, true)) window->Unload();
  };
  window->mnuDetails.UserClick();
  EXPECT_FALSE(window.IsLoaded()) << "closed while it was built";
}

TEST_F(ReportWindow, EachViewShowsAndEnablesWhatBelongsToIt) {
  frmReport& form = ShowFresh();
  for (const auto& [report, format, disabled] : Cases<3>("ui/ReportViews")) {
    SCOPED_TRACE(report + ", " + format);
    form.Toolbar1.UserButtonClick(report);
    form.Toolbar1.UserButtonClick(format);
    EXPECT_EQ(form.RepTitle.Caption().substr(10, 6), report.substr(0, 6));
    EXPECT_EQ(form.ReportTextBox.Text->substr(1, 24), form.RepTitle.Caption());
    EXPECT_EQ(form.ReportTextBox.Emphasised(), (RichTextBox::Emphasis{1, 24, 14, true, true}));
    const bool list = format == "List View";
    EXPECT_EQ(Status(form), list ? " List View Format| Auto Arrange Off| Font Size 9" : " Standard Format||");
    for (const char* key : {"Summary", "Detail", "Standard", "List View"})
      EXPECT_EQ(form.Toolbar1.Button(key).Pressed(), key == report || key == format) << key;
    EXPECT_EQ(Disabled(form), disabled);
    EXPECT_EQ(form.ListView1.Visible() && form.fraReportHeader.Visible(), list);
    EXPECT_EQ(form.ReportTextBox.Visible(), !list);
  }
  EXPECT_EQ(host.pointer, MousePointer::Default);
}

TEST_F(ReportWindow, IsBuiltAnewOnlyForAFreshAnalysis) {
  UserReportPref = 1;
  frmReport& form = ShowFresh();
  EXPECT_EQ(form.Caption(), "QEL Report - (test.log)");
  EXPECT_EQ(form.ListView1.Row(2).Text, " 1");
  EXPECT_FALSE(form.ProgressBar1.Visible());
  form.ListView1.AddRow({"a mark", {}});
  const int marked = form.ListView1.RowCount();
  window->ShowAnalysis();
  EXPECT_EQ(form.ListView1.RowCount(), marked);
  SetPeriod(DateSerial(1999, 3, 2), DateSerial(1999, 3, 2));
  ShowFresh();
  EXPECT_EQ(form.ListView1.RowCount(), 0);
  EXPECT_TRUE(form.fraNoConn.Visible()) << "it was in front all the time";
}

TEST_F(ReportWindow, ColumnsWithAnAsteriskSwitchBetweenDataAndBlocks) {
  frmReport& form = ShowFresh();
  for (const auto& [column, shown] : {std::pair{6, "512K"}, {7, "0 (00:00)"}, {7, "512K"}}) {
    form.ListView1.UserColumnClick(column);
    EXPECT_EQ(form.ListView1.Cell(2, 7), shown);
  }
}

TEST_F(ReportWindow, SaysWhereTheSummaryDiffersFromItsConnections) {
  AddService("Beta", "777", "");
  AddService("Alpha", "555", "777");
  std::string log;
  for (const char* call : {"Recv: ATDT555<cr>", "Recv: ATDT777<cr>"})
    for (const char* line : {call, "Connection established", "Hanging up the modem"})
      log += std::string("03-01-1999 09:00:00.00 - ") + line + "\r\n";
  OpenLog(log);
  frmReport& form = ShowFresh();
  for (const auto& [button, shown] :
       {std::pair{"Standard", true}, {"Detail", false}, {"List View", false}, {"Summary", true}}) {
    form.Toolbar1.UserButtonClick(button);
    EXPECT_EQ(form.RepDifference.Visible(), shown) << button;
  }
  EXPECT_EQ(form.RepDifference.Caption(),
            "The Summary puts calls under other services than the Details do:\n"
            "Alpha: 1 session more; calls to 777 of Beta are counted here.\n"
            "Beta: 1 session less; its calls to 777 are counted under Alpha, which has that number too.");
  EXPECT_FALSE(OpenOld().RepDifference.Visible());
}

TEST_F(ReportWindow, NumbersAreShownInTheDetailsListAlone) {
  frmReport& form = ShowFresh();
  std::string widths;
  for (const char* key : {"Detail", "ShowNums", "Summary", "Detail", "Standard", "List View", "ShowNums"}) {
    form.Toolbar1.UserButtonClick(key);
    widths += std::to_string(Widths(form)[0]) + " ";
    EXPECT_EQ(form.mnuNumConnections.Checked(), form.Toolbar1.Button(16).Pressed()) << key;
  }
  EXPECT_EQ(widths, "0 100 0 100 0 100 0 ");
}

TEST_F(ReportWindow, EachReportKeepsItsPlaceFontAndColumns) {
  SummaryViewSettings.FontSize = 0;
  DetailViewSettings.FontSize = 12;
  DetailViewSettings.WinTop = 0;
  frmReport& form = ShowFresh();
  EXPECT_EQ(form.ListView1.Font->Size, 9) << "none was stored";
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 1000, 1000, 700, 1000, 1000, 1440, 1440}));
  form.Height = 7000;
  form.Top = 300;
  form.ListView1.UserColumnWidth(8, 1234);
  form.mnuDetails.UserClick();
  EXPECT_EQ(std::pair(form.Height(), form.Top()), std::pair(5100, 300)) << "no top was stored";
  EXPECT_EQ(form.RepWarn3.Caption(), "Report may be inaccurate.");
  EXPECT_EQ(form.ListView1.Font->Size, 12);
  form.ListView1.UserColumnWidth(2, 2222);
  form.ListView1.UserColumnWidth(8, 3333);
  form.WindowState = WindowState::Maximized;
  form.Height = 12000;
  form.mnuSummary.UserClick();
  EXPECT_EQ(form.Height(), 12000);
  EXPECT_EQ(form.ListView1.Font->Size, 9);
  EXPECT_EQ(Widths(form)[7], 1234);
  form.WindowState = WindowState::Normal;
  form.mnuDetails.UserClick();
  EXPECT_EQ(form.Height(), 5100) << "the maximised height is not the user's choice";
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 2222, 1000, 700, 1000, 1000, 2000, 6000})) << "Notes as ever";
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

TEST_F(ReportWindow, TheTextFormatLosesNothingThatTheListHad) {
  ReportListView = false;
  DetailViewSettings.FontSize = 12;
  ShowFresh().mnuDetails.UserClick();
  window->mnuExit.UserClick();
  EXPECT_EQ(SummaryViewSettings.Column[2], 700);
  EXPECT_EQ(DetailViewSettings.FontSize, 12);
}

TEST_F(ReportWindow, AutoArrangeSharesTheWidthOfTheList) {
  frmReport& form = ShowFresh();
  form.mnuDetails.UserClick();
  form.ListView1.Width = 10000;
  form.mnuAutoArrange.UserClick();
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 1114, 1114, 1114, 1114, 1114, 1114, 6000}));
  form.ListView1.Width = 2900;
  form.Width = 3000;
  EXPECT_EQ(Widths(form)[1], 1114) << "100 would be left";
  EXPECT_EQ(Status(form), " List View Format| Auto Arrange On| Font Size 9");
}

TEST_F(ReportWindow, TheFontShrinksToNothingAndNoFurther) {
  SummaryViewSettings.FontSize = 1;
  frmReport& form = ShowFresh();
  std::string sizes;
  for (const char* key : {"Smaller", "Smaller", "Bigger"}) {
    form.Toolbar1.UserButtonClick(key);
    sizes += form.StatusBar1.Panels()[2];
  }
  EXPECT_EQ(sizes, " Font Size 0 Font Size 0 Font Size 1");
}

TEST_F(ReportWindow, SettingsAreStoredOnClosingOrTheirSwitchAlone) {
  WriteUserParameters();
  ShowFresh().mnuFormatStd.UserClick();
  window->Toolbar1.UserButtonClick("Exit");
  EXPECT_EQ(StoredWord("ListView") + StoredWord("SaveSettings"), "FalseTrue");
  frmReport& form = ShowFresh();
  EXPECT_FALSE(form.ListView1.Visible());
  form.mnuListView.UserClick();
  form.mnuSaveSettings.UserClick();
  form.mnuExit.UserClick();
  EXPECT_EQ(StoredWord("ListView") + StoredWord("SaveSettings"), "FalseFalse");
}

TEST_F(ReportWindow, SavesAndPrintsTheTextWhateverTheFormat) {
  const std::string text = ShowFresh().ReportTextBox.Text;
  host.paths = {folder.Path("s.txt"), std::nullopt, folder.Path("none/d.txt")};
  window->mnuSaveAS.UserClick();
  EXPECT_EQ(folder.Content("s.txt"), text + "\r\n");
  EXPECT_EQ(host.dialogs[0].Folder + host.dialogs[0].Filter, AppPath + "Text (*.txt)|*.txt");
  window->Toolbar1.UserButtonClick("Print");
  EXPECT_EQ(host.printed.at(0).Title + "\n" + host.printed[0].Text, "QEL Report - (test.log)\n" + text);
  EXPECT_EQ(host.printed[0].Font, (Font{"Courier New", 10}));
  window->mnuDetails.UserClick();
  window->mnuSaveAS.UserClick();
  EXPECT_EQ(window->StatusBar1.Text(), " List View Format") << "the user cancelled";
  window->mnuSaveAS.UserClick();
  EXPECT_EQ(window->StatusBar1.Text(), " Report not saved: Path not found");
  EXPECT_EQ(*(host.transcript.end() - 2) + host.transcript.back(), "save: Detail 01Mar99 - 02Mar99beep");
  window->mnuAutoArrange.UserClick();
  EXPECT_EQ(window->StatusBar1.Text(), " List View Format");
}

TEST_F(ReportWindow, ShowsSavesAndPrintsAnOpenedReportAsItIsAndRemembersNothingOfIt) {
  frmReport& form = ShowFresh();
  EXPECT_EQ(ErrorOf([&] { form.OpenReport(folder.Path("none.txt")); }), FileNotFound);
  OpenOld();
  EXPECT_EQ(form.Caption(), "QEL Report - (M\xE4rz.txt)");
  EXPECT_EQ(form.ReportTextBox.Text(), old);
  EXPECT_TRUE(form.ReportTextBox.Visible() && !form.ListView1.Visible() && !form.fraReportHeader.Visible());
  EXPECT_EQ(Disabled(form),
            "mnuSummary mnuDetails mnuRefresh mnuFormatStd mnuListView mnuNumConnections mnuAutoArrange "
            "mnuFont 7 8 10 11 13 14 16");
  host.paths = {folder.Path("copy.txt")};
  form.mnuSaveAS.UserClick();
  EXPECT_TRUE(host.Showed("save: M\xC3\xA4rz.txt"));
  EXPECT_EQ(folder.Content("copy.txt"), old);
  form.mnuPrint.UserClick();
  EXPECT_EQ(host.printed[0].Text, old);
  form.Height = 9000;
  form.mnuExit.UserClick();
  EXPECT_TRUE(ReportListView && SummaryViewSettings.WinHeight == 5100);
}

TEST_F(ReportWindow, LeavesAnOpenedReportForTheNextAnalysis) {
  ShowFresh().ListView1.UserColumnWidth(2, 2222);
  frmReport& form = OpenOld();
  form.Height = 9000;
  window->ShowAnalysis();
  EXPECT_EQ(form.Caption(), "QEL Report - (test.log)");
  EXPECT_EQ(form.ReportTextBox.Text->substr(1, 24), form.RepTitle.Caption());
  EXPECT_TRUE(form.ListView1.Visible() && form.mnuSummary.Enabled() && !form.mnuNumConnections.Enabled());
  EXPECT_EQ(form.Height(), 5100);
  EXPECT_EQ(Widths(form)[1], 2222);
}

}  // namespace qel
