#include <QAction>
#include <QCalendarWidget>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>

#include "MissingBindings.h"
#include "SampleForm.h"
#include "desktop/Look.h"
#include "desktop/QtValues.h"
#include "values/DateFormat.h"

namespace qel {
namespace {

class Binding : public DesktopTest {};

TEST_F(Binding, TheWidgetsShowTheModel) {
  form.Caption = "Costs in \x80";
  form.lblTitle.Caption = "A & B";
  form.lblTitle.ForeColor = SystemColour::Warning;
  form.lblPlaced.Left = 300;
  form.lblPlaced.Caption = "Name";
  form.btnRun.Caption = "Go on";
  form.btnRun.Enabled = false;
  form.optTips.Value = true;
  form.optList.Value = true;
  form.optText.Value = true;
  form.mnuRecent.Checked = true;
  form.mnuExit.Visible = false;
  form.Toolbar1.Button("View").Pressed = true;
  form.StatusBar1.SetPanelCount(2);
  form.StatusBar1.SetPanel(2, "3 connections");
  form.ProgressBar1.SetValue(40);
  form.TabStrip1.SetTabs({{"One", ""}, {"Two", "tip"}});
  form.TabStrip1.SelectTab(2);
  form.lstUnit.AddItem("Per Minute");
  form.lstUnit.SetText("per minute");

  EXPECT_EQ(FaceOf(form)->Window().windowTitle(), QString::fromUtf8("Costs in \u20ac"));
  EXPECT_EQ(Get<QLabel>("lblTitle").text(), "A & B");
  EXPECT_EQ(Get<QLabel>("lblTitle").palette().color(QPalette::WindowText), QColor(Qt::red));
  EXPECT_EQ(Get<QLabel>("lblTitle").palette().color(QPalette::Disabled, QPalette::WindowText),
            ColourOf(SystemColour::GreyText));
  EXPECT_EQ(Get<QLabel>("lblPlaced").x(), 20);
  EXPECT_EQ(Get<QLabel>("lblPlaced").text(), "Na&me");
  EXPECT_EQ(Get<QPushButton>("btnRun").text(), "G&o on");
  EXPECT_FALSE(Get<QPushButton>("btnRun").isEnabled());
  EXPECT_TRUE(Get<QCheckBox>("optTips").isChecked() && Get<QAction>("mnuRecent_0").isChecked());
  EXPECT_TRUE(Get<QRadioButton>("optFormat_0").isChecked() && !Get<QRadioButton>("optFormat_1").isChecked());
  EXPECT_FALSE(Get<QAction>("mnuExit").isVisible());
  EXPECT_TRUE(Get<QAction>("toolView").isChecked());
  EXPECT_EQ(Get<QStatusBar>("StatusBar1").findChildren<QLabel*>("qt_panel").back()->text(), "3 connections");
  EXPECT_EQ(Get<QProgressBar>("ProgressBar1").value(), 40);
  EXPECT_EQ(Get<QProgressBar>("ProgressBar1").parent(), &Get<QStatusBar>("StatusBar1"));
  EXPECT_EQ(Get<QTabBar>("TabStrip1").currentIndex(), 1);
  EXPECT_EQ(Get<QComboBox>("lstUnit").currentText(), "Per Minute");
}

TEST_F(Binding, ChangeFindsTheInsertionPointBehindWhatWasTyped) {
  std::string seen;
  form.txtName.Change = [&] {
    seen += form.txtName.Text() + ':' + std::to_string(form.txtName.SelStart()) + ' ';
    if (form.txtName.Text() == "aXb") form.txtName.Text = "no";
  };
  form.txtName.KeyPressed = [](KeyPress& press) {
    if (press.Character == 'x') press.Character = 'X';
    press.Handled = press.Character == '!';
  };
  auto& line = Get<QLineEdit>("txtName");
  form.txtName.SetFocus();
  QTest::keyClicks(&line, "ab!");
  QTest::keyClick(&line, Qt::Key_Left);
  EXPECT_EQ(form.txtName.SelStart(), 1);
  QTest::keyClicks(&line, "x");
  EXPECT_EQ(seen, "a:1 ab:2 aXb:2 no:2 ");
  EXPECT_EQ(line.text(), "no");
  line.selectAll();
  QTest::keyClicks(&line, "q");
  EXPECT_EQ(line.cursorPosition(), 1);
  EXPECT_EQ(form.txtName.SelLength(), 0);
}

TEST_F(Binding, AMaskLeadsTheUserAndLetsOtherTextsShow) {
  form.inputStarting.Mask = "##/AAA/####";
  auto& line = Get<QLineEdit>("inputStarting");
  form.inputStarting.Text = "12/Dec/1998";
  Click(line);
  EXPECT_EQ(line.selectedText(), "12/Dec/1998") << "the click that brings the focus";
  QTest::keyClicks(&line, "05");
  EXPECT_EQ(form.inputStarting.Text(), "05/___/____");
  QTest::keyClicks(&line, "Oct1998");
  EXPECT_EQ(form.inputStarting.Text(), "05/Oct/1998");
  for (const int key : {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete})
    QTest::keyClick(&line, static_cast<Qt::Key>(key));
  EXPECT_EQ(line.text(), "_5/Oct/199_");
  Click(line);
  EXPECT_FALSE(line.hasSelectedText()) << "a click inside";
  form.txtName.SetFocus();
  QMimeData dropped;
  dropped.setText("07/Jan/1999");
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
  QApplication::sendEvent(&line, &enter);
  QDropEvent drop({1, 1}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
  QApplication::sendEvent(&line, &drop);
  EXPECT_EQ(form.inputStarting.Text(), "07/Jan/1999");
  form.inputStarting.Text = "5 October";
  EXPECT_EQ(line.text(), "5 October");
  QTest::keyClicks(&line, "1");
  EXPECT_EQ(form.inputStarting.Text(), "1") << "any text";
}

TEST_F(Binding, TensOfThousandsOfRowsAreShownAndScrolledAtOnce) {
  std::vector<ListColumn> columns{{"", 100}};
  for (int i = 2; i <= 10; ++i) columns.push_back({"Column " + std::to_string(i), 1500, ColumnAlign::Right});
  columns[4].Width = 0;
  form.ListView1.SetColumns(columns);
  QElapsedTimer clock;
  clock.start();
  for (int i = 1; i <= 32000; ++i)
    form.ListView1.AddRow({std::to_string(i), std::vector<std::string>(9, "text")});
  Settle();
  auto& view = Get<QTreeView>("ListView1");
  view.setMinimumHeight(200);
  view.scrollToBottom();
  view.grab();
  EXPECT_LT(clock.elapsed(), 3000);
  EXPECT_TRUE(view.isColumnHidden(4));
  EXPECT_GE(view.columnWidth(0), view.fontMetrics().horizontalAdvance("32000")) << "numbers can be read";
  EXPECT_EQ(view.columnWidth(1), 100);

  form.ListView1.SelectRow(20000);
  Settle();
  const QRect row = view.visualRect(view.currentIndex());
  EXPECT_TRUE(view.viewport()->rect().intersects(row));
  EXPECT_EQ(view.currentIndex().siblingAtColumn(0).data(), "20000");
  const QRect below = view.visualRect(view.indexBelow(view.currentIndex()));
  Click(*view.viewport(), {below.x() + 2, below.center().y()});
  EXPECT_EQ(form.ListView1.SelectedRow(), 20001);
  view.header()->resizeSection(1, 80);
  EXPECT_EQ(form.ListView1.Columns()[1].Width, 80 * TwipsPerPixel);
  for (const int role : {Qt::DisplayRole, Qt::DecorationRole, Qt::TextAlignmentRole})
    EXPECT_FALSE(view.model()->data({}, role).isValid()) << "of no cell";
  form.ListView1.Clear();
  view.grab();  // before the view knows
  Settle();
  EXPECT_EQ(view.model()->rowCount(), 0);
}

// Another month brings its own day along.
TEST_F(Binding, APageThatIsTurnedAndAClickOnWhatIsSelectedAlreadyAreNews) {
  int clicks = 0;
  form.lstNames.Click = form.ListView1.ItemClick = [&clicks] { ++clicks; };
  form.lstNames.AddItem("a");
  form.ListView1.SetColumns({{"A", 1000}});
  form.ListView1.SetRows({{"1", {}}});
  Settle();
  auto& names = Get<QListWidget>("lstNames");
  auto& rows = Get<QTreeView>("ListView1");
  for (int i = 0; i < 2; ++i) {
    Click(*names.viewport(), names.visualItemRect(names.item(0)).center());
    Click(*rows.viewport(), rows.visualRect(rows.model()->index(0, 0)).center());
  }
  EXPECT_EQ(clicks, 4);
  form.Calendar1.Value = DateSerial(1999, 1, 31);
  auto& calendar = Get<QCalendarWidget>("Calendar1");
  calendar.showNextMonth();
  EXPECT_EQ(FormatDate(form.Calendar1.Value, "m/d"), "2/28");
  form.Calendar1.Click = [&clicks] { ++clicks; };
  QTest::keyClick(calendar.findChild<QTableView*>(), Qt::Key_Return);
  EXPECT_EQ(clicks, 5) << "Enter picks the day";
  EXPECT_EQ(Get<QSpinBox>("qt_calendar_yearedit").minimum(), 100) << "the first year that a date can have";
}

TEST_F(Binding, AFieldThatRefusesIsMarkedAndSaysWhyUntilItTakesItsText) {
  Control* const fields[] = {&form.txtName, &form.inputStarting, &form.lstUnit, &form.lstFree,
                             &form.Calendar1};
  for (Control* field : fields) {
    auto& widget = Get<QWidget>(field->Name().c_str());
    // Between the frame and the text, and in the last day's corner.
    const QPoint bare = field == &form.Calendar1 ? widget.rect().bottomRight() - QPoint(2, 2) : QPoint(8, 5);
    const auto ground = [&] { return widget.grab().toImage().pixelColor(bare); };
    field->ToolTipText = "Tip";
    const QColor usual = ground();
    field->Refusal = "This takes a number.";
    EXPECT_EQ(widget.toolTip(), "This takes a number.") << field->Name();
    EXPECT_EQ(ground(), ColourOf(SystemColour::Refused)) << field->Name();
    field->Refusal = "";
    EXPECT_EQ(widget.toolTip(), "Tip") << field->Name();
    EXPECT_EQ(ground(), usual) << field->Name();
  }
}

TEST_F(Binding, APictureShowsItsFrame) {
  auto& picture = Get<PictureWidget>("Picture1");
  const QPoint middle = picture.rect().center();
  const QColor ground = picture.palette().color(QPalette::Window);
  for (const auto& [frame, colour] :
       {std::pair{1, QColor(Qt::red)}, {2, QColor(Qt::blue)}, {Picture::NoFrame, ground}}) {
    form.Picture1.Frame = frame;
    EXPECT_EQ(picture.grab().toImage().pixelColor(middle), colour) << frame;
  }
}

TEST_F(Binding, ATimerTicksWhileItIsEnabled) {
  int ticks = 0;
  form.Timer1.Elapsed = [&] { form.Timer1.Enabled = ++ticks < 2; };
  form.Timer1.Enabled = true;
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }, 2000));
  QTest::qWait(40);
  EXPECT_EQ(ticks, 2);
}

TEST_F(Binding, TheUsersResizingComesBackWithTheControlsInPlace) {
  const int before = form.ListView1.Width;
  FaceOf(form)->Window().resize(700, 950);
  Settle();
  EXPECT_EQ(form.Width, 700 * TwipsPerPixel);
  EXPECT_EQ(form.ListView1.Width, before + 100 * TwipsPerPixel);
  EXPECT_EQ(form.events, "resize resize ") << "once for the width, once for the height";
  form.WindowState = WindowState::Maximized;
  Settle();
  EXPECT_TRUE(FaceOf(form)->Window().isMaximized());
  EXPECT_EQ(form.Width, 700 * TwipsPerPixel) << "the normal size";
  FaceOf(form)->Window().showNormal();
  form.Caption = "the user's change is on its way";
  Settle();
  EXPECT_EQ(form.WindowState, WindowState::Normal);
}

TEST_F(Binding, AWholeDesignHasNothingMissingAndAFaultOfEachSortIsFound) {
  EXPECT_EQ(MissingBindings::Of(form), std::vector<std::string>());
  const Label lost(form, "lblLost");
  Get<QAction>("toolSave").setText("Sav");
  Get<QMenu>("mnuFile").addAction("Stray")->setObjectName("mnuStray");
  for (const char* name : {"lblStray", "labelFree"})
    (new QLabel(&Get<QFrame>("fraFree")))->setObjectName(name);
  EXPECT_EQ(MissingBindings::Of(form),
            (std::vector<std::string>{"Toolbar1 has the tools ||Sav|View for ||Save|View",
                                      "control without widget: lblLost", "widget without control: lblStray",
                                      "action without control: mnuStray"}));
  frmDialog dialog(windows.Screen);
  dialog.Load();
  EXPECT_EQ(MissingBindings::Of(dialog), std::vector<std::string>{"widget without control: btnStray"});
}

}  // namespace
}  // namespace qel
