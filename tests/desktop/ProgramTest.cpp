#include "ProgramTest.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

#include "support/ModemStore.h"

namespace qel {

TEST_F(ProgramTest, EveryWindowBindsCompletely) {
  DefaultLog(LogOf("01-05-1999", "01-06-1999"));
  Store({"\\Modem\\0000"});
  PreConfigure(true);
  NewService = NewTariff = true;
  for (Form* form : std::initializer_list<Form*>{
           &*ReportForm, &*AboutForm, &*MainForm, &*SplashForm, &*FileRepairForm, &*PurgeForm, &*ViewLogForm,
           &*FindForm, &*SetupForm, &*ServiceForm, &*TariffForm, &*TipForm, &*PreConfigureForm, &*HelpForm})
    form->Load();
  for (const Form* form : LoadedForms)
    for (const auto& fault : MissingBindings(*form)) ADD_FAILURE() << form->Name() << ": " << fault;
  EXPECT_EQ(LoadedForms.size(), 14u);
}

TEST_F(ProgramTest, ItComesUpInEveryStateOfTheLog) {
  Start();
  Keep("frmSplash", "waiting");
  Click(Get<QWidget>("frmSplash", "Picture1"));
  Keep("frmMain", "no log");
  EXPECT_EQ(asked, std::vector<std::string>{"No Modem Log Detected!"});
  EXPECT_FALSE(Get<QMenu>("frmMain", "mnuTools").menuAction()->isEnabled());

  folder.Put("ModemLog.txt", "01-05-1999 10:00:00.00 - \x01\r\n");
  asked.clear();
  Start();
  Keep("frmMain", "corrupt log");
  EXPECT_EQ(asked, std::vector<std::string>{"WARNING"});

  PutSample("ModemLog.txt");
  Start();
  Keep("frmMain", "usable log");
}

TEST_F(ProgramTest, FromAFreshHomeToASavedReportAndBackByMouseAndKeyboard) {
  PutSample("sample.log");
  Start();
  Click(Get<QWidget>("frmSplash", "SplashLabel1"));
  paths = {folder.Path("sample.log")};
  ClickTool("frmMain", "ToolbarMain", "Open Archive");
  Keep("frmMain", "archive");
  EXPECT_TRUE(ArchiveOpen);

  Type("inputStarting", "10311998");
  auto& spinner = Get<UpDownButton>("frmMain", "UpDown1");
  Click(*spinner.findChildren<QToolButton*>().front());
  EXPECT_EQ(Get<QLineEdit>("frmMain", "inputStarting").displayText(), "11/01/1998");
  Type("inputEnding", "11301998");
  EXPECT_EQ(Get<QLineEdit>("frmMain", "inputEnding").displayText(), "11/30/1998");
  EXPECT_EQ(MainForm->btnProcess.Caption(), "QELMARK - Report for 30 days");
  Click(Get<QPushButton>("frmMain", "btnProcess"));

  ASSERT_NE(LoadedForm("frmReport"), nullptr);
  Keep("frmReport", "summary, list");
  ClickTool("frmReport", "Toolbar1", "Detail");
  ClickTool("frmReport", "Toolbar1", "ShowNums");
  Keep("frmReport", "details, list");
  ClickTool("frmReport", "Toolbar1", "Standard");
  Keep("frmReport", "details, text");
  ClickTool("frmReport", "Toolbar1", "Summary");
  Keep("frmReport", "summary, text");
  ClickTool("frmReport", "Toolbar1", "List View");
  auto* const header = WindowOf("frmReport").findChild<QHeaderView*>();
  const auto title = [header](int column) {
    return header->model()->headerData(column, Qt::Horizontal).toString().toStdString();
  };
  EXPECT_EQ(title(6), "* Data Read");
  Click(*header->viewport(), {header->sectionViewportPosition(6) + 10, header->height() / 2});
  EXPECT_EQ(title(6), "* Blocks");
  auto& list = Get<QTreeView>("frmReport", "ListView1");
  list.setFocus();
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_C}) QTest::keyClick(&list, key, Qt::ControlModifier);
  const std::string copied = QApplication::clipboard()->text().toStdString();
  EXPECT_NE(copied.find("Harbour Net\t16:11:39\t22\t"), std::string::npos) << copied;
  EXPECT_NE(copied.find("\nTOTALS:\t"), std::string::npos);
  EXPECT_EQ(Get<QAction>("frmReport", "Toolbar1_Save").toolTip(), "Save Report (Ctrl+S)");
  paths = {folder.Path("November")};  // without an extension
  QTest::keyClick(&list, Qt::Key_S, Qt::ControlModifier);
  Settle();
  EXPECT_NE(folder.Content("November.txt").find("QELMARK - Summary Report"), std::string::npos);
  WindowOf("frmReport").resize(700, 400);
  WindowOf("frmReport").close();
  Settle();
  EXPECT_EQ(LoadedForm("frmReport"), nullptr);

  paths = {folder.Path("November.txt")};
  Choose("frmMain", "mnuOpenReport");
  Keep("frmReport", "opened file");
  WindowOf("frmMain").resize(800, 600);
  Choose("frmMain", "mnuExit");
  EXPECT_TRUE(ProgramEnded());
  EXPECT_TRUE(LoadedForms.empty());

  Start();
  Click(Get<QWidget>("frmSplash", "Picture1"));
  EXPECT_EQ(WindowOf("frmMain").size(), QSize(800, 600));
  EXPECT_EQ(Get<QAction>("frmMain", "mnuRecent_1").text(), "sample.log");
  EXPECT_EQ(Get<QAction>("frmMain", "mnuRecent_1").toolTip().toStdString(), folder.Path("sample.log"));
  Choose("frmMain", "mnuRecent_0");
  EXPECT_EQ(WindowOf("frmReport").windowTitle(), "QEL Report - (November.txt)");
  EXPECT_EQ(SummaryViewSettings.WinWidth, 700 * 15);
}

TEST_F(ProgramTest, AFreshHomeIsGreetedByTheWizardAndATip) {
  PutSample("ModemLog.txt");
  folder.Put("registry.reg",
             "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\Class\\Modem\\0000]\n"
             "\"DriverDesc\"=\"Internal 33600 V.34\"\n\"AttachedTo\"=\"COM2\"\n\"UserInit\"=\"E1\"\n");
  std::string tip = "A double click on the animation";
  for (int i = 0; i < 60; ++i) tip += " hides it, and";
  folder.Put("QelTips.txt", "The first tip.\n" + tip + "\n");
  const auto closeTip = [tip] {
    Click(Get<QPushButton>("frmTip", "cmdNextTip"));
    Keep("frmTip", "second tip");
    const auto& shown = Get<QLabel>("frmTip", "lblTipText");
    EXPECT_EQ(shown.text().toStdString(), tip);
    EXPECT_GE(shown.height(), shown.heightForWidth(shown.width())) << "nothing is cut off";
    QTest::keyClick(WindowOf("frmTip").focusWidget(), Qt::Key_Escape);
    return true;
  };
  act = [this, closeTip] {
    const QSize size = WindowOf("frmPreConfigure").size();
    for (const char* step : {"greeting", "choice", "comparison", "end"}) {
      Keep("frmPreConfigure", step);
      EXPECT_EQ(WindowOf("frmPreConfigure").size(), size) << step;
      Click(Get<QPushButton>("frmPreConfigure", "btnNext"));
    }
    act = closeTip;
    return true;
  };
  Start();
  QTest::qWait(200);
  EXPECT_EQ(LoadedForms, std::vector<Form*>{&*MainForm});
  EXPECT_TRUE(ModemConfigOK);
}

TEST_F(ProgramTest, AboutIsModalAndItsCloseButtonComesBack) {
  PutSample("ModemLog.txt");
  Start();
  QTimer::singleShot(100, [] {
    Keep("frmAbout", "open");
    WindowOf("frmAbout").close();
  });
  Choose("frmMain", "mnuAbout");
  EXPECT_EQ(LoadedForm("frmAbout"), nullptr);
  EXPECT_TRUE(MainForm->Visible());
  WindowOf("frmMain").close();
  EXPECT_TRUE(LoadedForms.empty());
}

}  // namespace qel
