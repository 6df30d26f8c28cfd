#include "FaceJourney.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include "desktop/EventLoop.h"
#include "desktop/FormFace.h"
#include "desktop/QtValues.h"
#include "desktop/UpDownButton.h"
#include "platform/Host.h"
#include "startup/QELMain.h"

namespace qel {

namespace {

void Settle() { QTest::qWait(20); }

QObject& ObjectOf(const Control& control) { return *FaceOf(control.Parent())->ObjectOf(control); }

template <class Shown>
Shown& WidgetOf(const Control& control) {
  auto* const widget = dynamic_cast<Shown*>(&ObjectOf(control));
  if (!widget) throw std::runtime_error("no widget of this kind for " + control.Name());
  return *widget;
}

void ClickAt(QWidget& widget, const QPoint& at = {}) { QTest::mouseClick(&widget, Qt::LeftButton, {}, at); }

// Where a click hits: buttons with a mark take it there.
QPoint PlaceOf(const QWidget& widget) {
  return widget.inherits("QCheckBox") || widget.inherits("QRadioButton") ? QPoint(8, widget.height() / 2)
                                                                         : widget.rect().center();
}

void ClickItem(QAbstractItemView& view, int row) {
  const QModelIndex item = view.model()->index(row, 0);
  view.scrollTo(item);
  const QRect place = view.visualRect(item);
  ClickAt(*view.viewport(), {place.left() + 4, place.center().y()});
}

}  // namespace

void FaceJourney::Start() {
  toldEnd = false;
  Dispatch([this] { qel::StartProgram(*Windows); });
  Settle();
}

bool FaceJourney::HasEnded() { return ProgramEnded() && !std::exchange(toldEnd, true); }

void FaceJourney::Stop(const std::string& why) {
  failure = why;
  throw ProgramEnd();
}

void FaceJourney::RunModal(const std::function<bool()>& done) {
  Settle();
  PlayWhile([&] { return !done() && !ProgramEnded(); });
  if (ProgramEnded()) throw ProgramEnd();
}

void FaceJourney::Click(Control& control) {
  QObject& object = ObjectOf(control);
  if (auto* action = qobject_cast<QAction*>(&object))
    action->trigger();
  else if (auto* widget = qobject_cast<QWidget*>(&object))
    ClickAt(*widget, PlaceOf(*widget));
  Settle();
}

void FaceJourney::DoubleClick(Control& control) {
  auto& widget = WidgetOf<QWidget>(control);
  QWidget* target = &widget;
  QPoint at = widget.rect().center();
  auto* view = qobject_cast<QAbstractItemView*>(&widget);
  if (auto* calendar = qobject_cast<QCalendarWidget*>(&widget)) view = calendar->findChild<QTableView*>();
  if (view) {
    target = view->viewport();
    const QModelIndex current = view->currentIndex();
    at = (current.isValid() ? view->visualRect(current) : target->rect()).center();
  }
  QTest::mouseClick(target, Qt::LeftButton, {}, at);
  QTest::mouseDClick(target, Qt::LeftButton, {}, at);
  Settle();
}

void FaceJourney::ClickTool(Toolbar& bar, const std::string& key) {
  auto& tools = WidgetOf<QToolBar>(bar);
  for (QAction* action : tools.actions())
    if (FromQt(action->text()) == key) ClickAt(*tools.widgetForAction(action));
  Settle();
}

void FaceJourney::ClickTab(TabStrip& strip, int tab) {
  auto* tabs = qobject_cast<QTabBar*>(&ObjectOf(strip));
  if (!tabs) tabs = WidgetOf<QTabWidget>(strip).tabBar();
  ClickAt(*tabs, tabs->tabRect(tab - 1).center());
  Settle();
}

void FaceJourney::ClickRow(ListView& list, int row) {
  ClickItem(WidgetOf<QTreeView>(list), row - 1);
  Settle();
}

void FaceJourney::ClickColumn(ListView& list, int column) {
  QHeaderView& header = *WidgetOf<QTreeView>(list).header();
  const int at = column - 1;
  header.setOffset(std::max(0, header.sectionPosition(at) - 20));
  ClickAt(*header.viewport(),
          {header.sectionViewportPosition(at) + header.sectionSize(at) / 2, header.height() / 2});
  header.setOffset(0);
  Settle();
}

// As people do: a click into the field, everything selected, the new text.
void FaceJourney::Type(Control& control, const std::string& text) {
  QLineEdit* line = qobject_cast<QLineEdit*>(&ObjectOf(control));
  if (auto* combo = qobject_cast<QComboBox*>(&ObjectOf(control))) line = combo->lineEdit();
  QWidget& field = line ? *line : WidgetOf<QWidget>(control);
  ClickAt(field, field.rect().center());
  Settle();
  QTest::keySequence(&field, QKeySequence::SelectAll);
  if (text.empty()) QTest::keyClick(&field, Qt::Key_Delete);
  for (const QChar character : ToQt(text))
    if (character < u'\x80')
      QTest::keyClick(&field, character.toLatin1());
    else
      QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QString(character), {});
  Settle();
}

void FaceJourney::Press(Form& form, const std::string& key) {
  QWidget& window = FaceOf(form)->Window();
  QWidget* const focused = window.focusWidget() ? window.focusWidget() : &window;
  QApplication::clipboard()->setText(ToQt(ClipboardText()));
  if (key.size() == 1)
    QTest::keyClick(focused, key.front());
  else
    QTest::keySequence(focused, QKeySequence(QString::fromStdString(key)));
  Settle();
}

void FaceJourney::Choose(ListBox& list, int index) {
  if (auto* view = qobject_cast<QListWidget*>(&ObjectOf(list))) return ClickItem(*view, index), Settle();
  auto& combo = WidgetOf<QComboBox>(list);
  combo.setFocus(Qt::MouseFocusReason);
  combo.showPopup();
  Settle();
  const QModelIndex item = combo.view()->model()->index(index, 0);
  combo.view()->scrollTo(item);
  ClickAt(*combo.view()->viewport(), combo.view()->visualRect(item).center());
  Settle();
}

// With the mouse, by the table that the calendar shows.
void FaceJourney::Pick(Calendar& calendar, Date day) {
  auto& picker = WidgetOf<QCalendarWidget>(calendar);
  const QDate wanted = DayToQt(day);
  picker.setCurrentPage(wanted.year(), wanted.month());
  auto* const days = picker.findChild<QAbstractItemView*>();
  const int first = picker.firstDayOfWeek();
  for (int row = 0; row < days->model()->rowCount(); ++row)
    for (int column = 0; column < days->model()->columnCount(); ++column) {
      const QModelIndex cell = days->model()->index(row, column);
      const bool isOfMonth =
          row == 0 ? false : cell.data().toInt() == wanted.day() && (wanted.day() < 15 ? row < 4 : row > 2);
      if (!isOfMonth || (column % 7 + first - 1) % 7 + 1 != wanted.dayOfWeek()) continue;
      ClickAt(*days->findChild<QWidget*>("qt_scrollarea_viewport"), days->visualRect(cell).center());
      return Settle();
    }
  throw std::runtime_error("no such day on the calendar");
}

void FaceJourney::Point(Control& control) {
  auto& widget = WidgetOf<QWidget>(control);
  const QPoint at = widget.rect().center();
  QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &move);
  Settle();
}

void FaceJourney::Step(UpDown& button, bool up) {
  auto& arrows = WidgetOf<UpDownButton>(button);
  ClickAt(up ? arrows.Up() : arrows.Down());
  Settle();
}

void FaceJourney::Close(Form& form) {
  FaceOf(form)->Window().close();
  Settle();
}

void FaceJourney::Activate(Form& form) {
  FaceOf(form)->Window().activateWindow();
  Settle();
}

}  // namespace qel
