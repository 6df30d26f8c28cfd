// The whole program with its real windows, driven by mouse and keyboard. Its windows are left as pictures in
// the build folder.
#include <QCalendarWidget>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <deque>

#include "controls/Form.h"
#include "desktop/DesktopHost.h"
#include "desktop/EventLoop.h"
#include "desktop/FormFace.h"
#include "desktop/MissingBindings.h"
#include "desktop/UpDownButton.h"
#include "desktop/Windows.h"
#include "startup/QELMain.h"
#include "support/WindowTest.h"

namespace qel {
namespace {

class ProgramTest : public WindowTest {
 protected:
  ProgramTest() {
    setenv("QEL_HOME", folder.Path().c_str(), 1);
    setenv("WinDir", folder.Path().c_str(), 1);
    ResetClock();
    SetHost(desktop);
    AttachFaces(ProgramWindows());
    QObject::connect(&clerk, &QTimer::timeout, [this] { AnswerBoxes(); });
    clerk.start(20);
  }
  ~ProgramTest() override {
    ReleaseFaces();
    ResetWindows();
    AttachFace = nullptr;
    ResetEventLoop();
    unsetenv("QEL_HOME");
    unsetenv("WinDir");
  }

  void Start() {
    ReleaseFaces();
    ResetWindows();
    ResetEventLoop();
    Dispatch(StartProgram);
    Settle();
  }

  // What waits for the user while the program asks: boxes are read and confirmed, file dialogues get a path.
  void AnswerBoxes() {
    QWidget* const modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      asked.push_back(box->windowTitle().toStdString());
      box->grab().save(Picture("box-" + std::to_string(++boxes)));
      QTest::keyClick(box->defaultButton(), Qt::Key_Space);
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal); dialog && !paths.empty()) {
      dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(paths.front()));
      paths.pop_front();
      static_cast<QDialog*>(dialog)->accept();
    }
  }
  static void Settle() { QTest::qWait(30); }

  static QWidget& WindowOf(const char* form) { return FaceOf(*LoadedForm(form))->Window(); }
  template <class Shown>
  static Shown& Get(const char* form, const char* name) {
    auto* const found = WindowOf(form).findChild<Shown*>(name);
    if (!found) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  static void Click(QWidget& widget, const QPoint& at = {}) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    Settle();
  }
  static void ClickTool(const char* form, const char* bar, const char* key) {
    auto& tools = Get<QToolBar>(form, bar);
    for (QAction* action : tools.actions())
      if (action->text() == key) return Click(*tools.widgetForAction(action));
    FAIL() << "no button " << key;
  }
  static void Choose(const char* form, const char* action) {
    Get<QAction>(form, action).trigger();
    Settle();
  }
  static void Type(const char* field, const char* date) {
    auto& input = Get<QLineEdit>("frmMain", field);
    Click(input);
    input.selectAll();
    QTest::keyClicks(&input, date);
    Settle();
  }
  // The middle of the cell of a day of the month shown.
  static void ClickDay(int day) {
    auto& calendar = Get<QCalendarWidget>("frmMain", "Calendar1");
    auto* const days = calendar.findChild<QTableView*>("qt_calendar_calendarview");
    const auto* model = days->model();
    bool inMonth = false;
    for (int row = 1; row < model->rowCount(); ++row)
      for (int column = 0; column < model->columnCount(); ++column) {
        const int shown = model->index(row, column).data().toInt();
        inMonth = inMonth || shown == 1;
        if (inMonth && shown == day)
          return Click(*days->viewport(), days->visualRect(model->index(row, column)).center());
      }
  }
  static QString Picture(const std::string& name) {
    return QString::fromStdString(std::string(QEL_SCREENSHOTS) + "/" + name + ".png");
  }
  static void Keep(const char* form, const std::string& state) {
    Settle();
    EXPECT_TRUE(SaveScreenshot(*LoadedForm(form), Picture(form + ("-" + state)).toStdString()));
  }
  void PutSample(const std::string& name) {
    folder.Put(name, ReadWholeFile(QEL_SOURCE_DIR "/share/samples/ModemLog.txt"));
    folder.Put("registry.reg", ReadWholeFile(QEL_SOURCE_DIR "/share/samples/QEL.reg"));
  }

  DesktopHost desktop;
  QTimer clerk;
  std::vector<std::string> asked;
  std::deque<std::string> paths;
  int boxes = 0;
};

TEST_F(ProgramTest, EveryWindowBindsCompletely) {
  ReportForm->Load();
  AboutForm->Load();
  MainForm->Load();
  SplashForm->Load();
  for (const Form* form : LoadedForms)
    for (const auto& fault : MissingBindings(*form)) ADD_FAILURE() << form->Name() << ": " << fault;
  EXPECT_EQ(LoadedForms.size(), 4u);
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
  WindowOf("frmMain").resize(640, 440);
  Keep("frmMain", "usable log, small");
  WindowOf("frmMain").resize(3840, 2100);
  Keep("frmMain", "usable log, 4K");
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
  Type("inputEnding", "11011998");
  ClickDay(30);
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
  paths = {folder.Path("November.txt")};
  ClickTool("frmReport", "Toolbar1", "Save");
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
  Choose("frmMain", "mnuRecent_0");
  EXPECT_EQ(WindowOf("frmReport").windowTitle(), "QEL Report - (November.txt)");
  EXPECT_EQ(SummaryViewSettings.WinWidth, 700 * 15);
}

TEST_F(ProgramTest, AnUnfinishedDateKeepsTheMouseFromTheOtherField) {
  PutSample("ModemLog.txt");
  Start();
  Type("inputStarting", "1");
  auto& input = Get<QLineEdit>("frmMain", "inputStarting");
  QTest::keyClick(&input, Qt::Key_Delete);
  Click(Get<QLineEdit>("frmMain", "inputEnding"));
  EXPECT_TRUE(input.hasFocus());
  EXPECT_EQ(Status(), "Invalid date entry!");
  Keep("frmMain", "invalid date");
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

}  // namespace
}  // namespace qel
