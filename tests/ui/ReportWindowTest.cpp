// The report window as its user has it, over the analysis of a small log.
#include <filesystem>

#include "reports/SummaryReport.h"
#include "settings/Registry_Functions.h"
#include "support/ErrorOf.h"
#include "support/FreshProgram.h"
#include "ui/frmReport.h"

namespace qel {
namespace {

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
  static std::vector<int> Widths(const frmReport& form) {
    std::vector<int> widths;
    for (const auto& column : form.ListView1.Columns()) widths.push_back(column.Width);
    return widths;
  }
  static std::string Status(const frmReport& form) {
    const auto& panels = form.StatusBar1.Panels();
    return panels[0] + "|" + panels[1] + "|" + panels[2];
  }
  static std::string StoredWord(const std::string& name) {
    return TextOf(QueryValue(SettingsRoot, std::string(SettingsKey) + "\\ViewReport", name));
  }

  TheForm<frmReport> window;
};

TEST_F(ReportWindow, EachViewShowsAndEnablesWhatBelongsToIt) {
  const struct {
    const char *report, *format, *title, *status;
    bool list, numbers;
  } cases[] = {
      {"Summary", "List View", "QELMARK - Summary Report", " List View Format| Auto Arrange Off| Font Size 9",
       true, false},
      {"Detail", "List View", "QELMARK - Details Report", " List View Format| Auto Arrange Off| Font Size 9",
       true, true},
      {"Detail", "Standard", "QELMARK - Details Report", " Standard Format||", false, false},
      {"Summary", "Standard", "QELMARK - Summary Report", " Standard Format||", false, false},
  };
  frmReport& form = ShowFresh();
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.report) + ", " + c.format);
    form.Toolbar1.UserButtonClick(c.report);
    form.Toolbar1.UserButtonClick(c.format);
    EXPECT_EQ(form.RepTitle.Caption(), c.title);
    EXPECT_EQ(form.ReportTextBox.Text->substr(1, 24), c.title);
    EXPECT_EQ(Status(form), c.status);
    for (const char* key : {"Summary", "Detail"})
      EXPECT_EQ(form.Toolbar1.Button(key).Pressed(), std::string(key) == c.report) << key;
    for (const char* key : {"Standard", "List View"})
      EXPECT_EQ(form.Toolbar1.Button(key).Pressed(), std::string(key) == c.format) << key;
    for (const Control* control :
         {static_cast<Control*>(&form.ListView1), static_cast<Control*>(&form.fraReportHeader)})
      EXPECT_EQ(control->Visible(), c.list);
    EXPECT_NE(form.ReportTextBox.Visible(), c.list);
    for (const Control* item : {&form.mnuFont, &form.mnuAutoArrange}) EXPECT_EQ(item->Enabled(), c.list);
    for (const int button : {13, 14}) EXPECT_EQ(form.Toolbar1.Button(button).Enabled(), c.list);
    EXPECT_EQ(form.mnuNumConnections.Enabled(), c.numbers);
    EXPECT_EQ(form.Toolbar1.Button(16).Enabled(), c.numbers);
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
  const auto switched = [&form] {
    return form.ListView1.Columns()[6].Text + " " + form.ListView1.Cell(2, 7);
  };
  EXPECT_EQ(switched(), "* Data Read 512K");
  form.ListView1.UserColumnClick(6);
  EXPECT_EQ(switched(), "* Data Read 512K");
  form.ListView1.UserColumnClick(7);
  EXPECT_EQ(switched(), "* Blocks 0 (00:00)");
  form.ListView1.UserColumnClick(7);
  EXPECT_EQ(switched(), "* Data Read 512K");
}

TEST_F(ReportWindow, NumbersAreShownInTheDetailsListAlone) {
  frmReport& form = ShowFresh();
  form.mnuDetails.UserClick();
  EXPECT_EQ(Widths(form)[0], 0);
  form.Toolbar1.UserButtonClick("ShowNums");
  EXPECT_EQ(Widths(form)[0], 100);
  EXPECT_TRUE(form.mnuNumConnections.Checked() && form.Toolbar1.Button(16).Pressed());
  form.mnuSummary.UserClick();
  EXPECT_EQ(Widths(form)[0], 0);
  form.mnuDetails.UserClick();
  EXPECT_EQ(Widths(form)[0], 100);
  form.mnuFormatStd.UserClick();
  EXPECT_EQ(Widths(form)[0], 0);
}

TEST_F(ReportWindow, EachReportKeepsItsPlaceFontAndColumns) {
  SummaryViewSettings.FontSize = 0;
  DetailViewSettings.FontSize = 12;
  DetailViewSettings.WinTop = 0;
  frmReport& form = ShowFresh();
  EXPECT_EQ(form.Height(), 5100);
  EXPECT_EQ(form.ListView1.Font->Size, 9) << "none was stored";
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 1000, 1000, 700, 1000, 1000, 1440, 1440}));
  form.Height = 7000;
  form.Top = 300;
  form.ListView1.UserColumnWidth(8, 1234);
  form.mnuDetails.UserClick();
  EXPECT_EQ(form.Height(), 5100);
  EXPECT_EQ(form.Top(), 300) << "none was stored";
  EXPECT_EQ(form.RepWarn3.Caption(), "Report may be inaccurate.");
  EXPECT_EQ(Status(form), " List View Format| Auto Arrange Off| Font Size 12");
  form.ListView1.UserColumnWidth(2, 2222);
  form.ListView1.UserColumnWidth(8, 3333);
  form.WindowState = WindowState::Maximized;
  form.Height = 12000;
  form.mnuSummary.UserClick();
  EXPECT_EQ(DetailViewSettings.WinHeight, 5100) << "a maximised window's is not the user's choice";
  form.WindowState = WindowState::Normal;
  form.DoSummarySettings();
  EXPECT_EQ(form.Height(), 7000);
  EXPECT_EQ(form.ListView1.Font->Size, 9);
  EXPECT_EQ(Widths(form)[7], 1234);
  form.mnuDetails.UserClick();
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 2222, 1000, 700, 1000, 1000, 2000, 6000})) << "Notes as ever";
}

TEST_F(ReportWindow, TheTextFormatLosesNothingThatTheListHad) {
  ReportListView = false;
  DetailViewSettings.FontSize = 12;
  frmReport& form = ShowFresh();
  form.mnuDetails.UserClick();
  form.mnuExit.UserClick();
  EXPECT_EQ(SummaryViewSettings.Column[2], 700);
  EXPECT_EQ(SummaryViewSettings.FontSize, 9);
  EXPECT_EQ(DetailViewSettings.Column[5], 2000);
  EXPECT_EQ(DetailViewSettings.FontSize, 12);
}

TEST_F(ReportWindow, AutoArrangeSharesTheWidthOfTheList) {
  frmReport& form = ShowFresh();
  form.mnuDetails.UserClick();
  form.ListView1.Width = 10000;
  form.mnuAutoArrange.UserClick();
  EXPECT_EQ(Widths(form), (std::vector<int>{0, 1114, 1114, 1114, 1114, 1114, 1114, 6000}));
  for (const int narrow : {2200, 2900, 1000}) {
    form.ListView1.Width = narrow;
    form.Width = narrow;
    EXPECT_EQ(Widths(form)[1], 1114) << narrow;
  }
  form.ListView1.Width = 20000;
  form.WindowState = WindowState::Minimized;
  EXPECT_EQ(Widths(form)[1], 1114);
  EXPECT_EQ(Status(form), " List View Format| Auto Arrange On| Font Size 9");
}

TEST_F(ReportWindow, TheFontShrinksToNothingAndNoFurther) {
  SummaryViewSettings.FontSize = 1;
  frmReport& form = ShowFresh();
  for (const char* size : {"0", "0"}) {
    form.Toolbar1.UserButtonClick("Smaller");
    EXPECT_EQ(form.StatusBar1.Panels()[2], std::string(" Font Size ") + size);
  }
  form.Toolbar1.UserButtonClick("Bigger");
  EXPECT_EQ(form.StatusBar1.Panels()[2], " Font Size 1");
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

TEST_F(ReportWindow, SavingWritesTheTextOfTheReportWhateverTheFormat) {
  host.paths = {folder.Path("s.txt"), std::nullopt, folder.Path("none/d.txt")};
  frmReport& form = ShowFresh();
  form.mnuSaveAS.UserClick();
  EXPECT_EQ(folder.Content("s.txt"), DisplaySummaryReport().ReportText + "\r\n");
  EXPECT_EQ(host.dialogs[0].Filter, "Text (*.txt)|*.txt");
  EXPECT_EQ(host.dialogs[0].Folder, AppPath);
  form.mnuDetails.UserClick();
  form.mnuSaveAS.UserClick();
  EXPECT_TRUE(host.Showed("save: Summary 01Mar99 - 02Mar99"));
  EXPECT_TRUE(host.Showed("save: Detail 01Mar99 - 02Mar99"));
  EXPECT_FALSE(host.Showed("beep"));
  form.mnuSaveAS.UserClick();
  EXPECT_EQ(form.StatusBar1.Text(), " Report not saved: Path not found");
  EXPECT_TRUE(host.Showed("beep"));
  EXPECT_TRUE(host.messages.empty());
  form.mnuAutoArrange.UserClick();
  EXPECT_EQ(form.StatusBar1.Text(), " List View Format");
}

TEST_F(ReportWindow, PrintingTakesTheTextInAFontOfFixedPitch) {
  ShowFresh().Toolbar1.UserButtonClick("Print");
  ASSERT_EQ(host.printed.size(), 1u);
  const PrintJob& job = host.printed[0];
  EXPECT_EQ(job.Text, DisplaySummaryReport().ReportText);
  EXPECT_EQ(job.Title, "QEL Report - (test.log)");
  EXPECT_EQ(job.Font, (Font{"Courier New", 10}));
  EXPECT_EQ(job.Left, 500);
}

TEST_F(ReportWindow, AnOpenedReportIsShownAsItIsUntilTheNextAnalysis) {
  const std::string text = " QELMARK - Details Report\r\n\r\n Caf\xE9\n";
  folder.Put("M\xC3\xA4rz.txt", text);
  frmReport& form = ShowFresh();
  form.ListView1.UserColumnWidth(2, 2222);
  EXPECT_EQ(ErrorOf([&] { form.OpenReport(folder.Path("none.txt")); }), FileNotFound);
  EXPECT_EQ(form.Caption(), "QEL Report - (test.log)");
  form.OpenReport(folder.Path("M\xC3\xA4rz.txt"));
  EXPECT_EQ(form.Caption(), "QEL Report - (M\xE4rz.txt)");
  EXPECT_EQ(form.ReportTextBox.Text(), text);
  EXPECT_TRUE(form.ReportTextBox.Visible() && !form.ListView1.Visible() && !form.fraReportHeader.Visible());
  for (const char* name : {"mnuSummary", "mnuDetails", "mnuFormatStd", "mnuListView", "mnuNumConnections",
                           "mnuAutoArrange", "mnuFont"})
    EXPECT_FALSE(form.Find(name)->Enabled()) << name;
  for (const int button : {7, 8, 10, 11, 13, 14, 16})
    EXPECT_FALSE(form.Toolbar1.Button(button).Enabled()) << button;
  host.paths = {folder.Path("copy.txt")};
  form.mnuSaveAS.UserClick();
  EXPECT_TRUE(host.Showed("save: M\xC3\xA4rz.txt"));
  EXPECT_EQ(folder.Content("copy.txt"), text);
  form.mnuPrint.UserClick();
  EXPECT_EQ(host.printed[0].Text, text);

  form.Height = 9000;
  window->ShowAnalysis();
  EXPECT_EQ(form.Caption(), "QEL Report - (test.log)");
  EXPECT_EQ(form.RepTitle.Caption(), form.ReportTextBox.Text->substr(1, 24));
  EXPECT_TRUE(form.ListView1.Visible() && form.mnuSummary.Enabled());
  EXPECT_FALSE(form.mnuNumConnections.Enabled());
  EXPECT_EQ(form.Height(), 5100);
  EXPECT_EQ(Widths(form)[1], 2222);
}

TEST_F(ReportWindow, ClosingAnOpenedReportLeavesTheViewsOfTheSettings) {
  folder.Put("old.txt", "text");
  window->OpenReport(folder.Path("old.txt"));
  window->Height = 9000;
  window->mnuExit.UserClick();
  EXPECT_TRUE(ReportListView);
  EXPECT_EQ(SummaryViewSettings.WinHeight, 5100);
  EXPECT_EQ(SummaryViewSettings.Column[0], 1000);
}

}  // namespace
}  // namespace qel
