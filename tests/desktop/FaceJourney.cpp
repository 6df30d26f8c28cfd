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

void ClickAt(QWidget& widget, const QPoint& at = {}) {
  QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
  Settle();
}

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
  loop.Dispatch([this] { qel::StartProgram(*Windows); });
  Settle();
}

bool FaceJourney::HasEnded() { return loop.HasEnded() && !std::exchange(toldEnd, true); }

void FaceJourney::Stop(const std::string& why) {
  failure = why;
  throw ProgramEnd();
}

void FaceJourney::RunModal(const std::function<bool()>& done) {
  Settle();
  PlayWhile([&] { return !done() && !loop.HasEnded(); });
  if (loop.HasEnded()) throw ProgramEnd();
}

void FaceJourney::Click(Control& control) {
  QObject& object = ObjectOf(control);
  if (auto* widget = qobject_cast<QWidget*>(&object)) return ClickAt(*widget, PlaceOf(*widget));
  qobject_cast<QAction*>(&object)->trigger();
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
    if (FromQt(action->text()) == key) return ClickAt(*tools.widgetForAction(action));
}

void FaceJourney::ClickTab(TabStrip& strip, int tab) {
  auto* tabs = qobject_cast<QTabBar*>(&ObjectOf(strip));
  if (!tabs) tabs = WidgetOf<QTabWidget>(strip).tabBar();
  ClickAt(*tabs, tabs->tabRect(tab - 1).center());
}

void FaceJourney::ClickRow(ListView& list, int row) { ClickItem(WidgetOf<QTreeView>(list), row - 1); }

void FaceJourney::ClickColumn(ListView& list, int column) {
  QHeaderView& header = *WidgetOf<QTreeView>(list).header();
  const int at = column - 1;
  header.setOffset(std::max(0, header.sectionPosition(at) - 20));
  ClickAt(*header.viewport(),
          {header.sectionViewportPosition(at) + header.sectionSize(at) / 2, header.height() / 2});
  header.setOffset(0);
}

// As people do: a click into the field, everything selected, the new text.
void FaceJourney::Type(Control& control, const std::string& text) {
  QLineEdit* line = qobject_cast<QLineEdit*>(&ObjectOf(control));
  if (auto* combo = qobject_cast<QComboBox*>(&ObjectOf(control))) line = combo->lineEdit();
  QWidget& field = line ? *line : WidgetOf<QWidget>(control);
  ClickAt(field, field.rect().center());
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
    QTest::keySequence(focused, QKeySequence(QString::fromStdString(key).replace("Page", "Pg")));
  Settle();
}

void FaceJourney::Choose(ListBox& list, int index) {
  if (auto* view = qobject_cast<QListWidget*>(&ObjectOf(list))) return ClickItem(*view, index);
  auto& combo = WidgetOf<QComboBox>(list);
  combo.setFocus(Qt::MouseFocusReason);
  combo.showPopup();
  Settle();
  ClickItem(*combo.view(), index);
}

// With the mouse, by the table that the calendar shows.
void FaceJourney::Pick(Calendar& calendar, Date day) {
  auto& picker = WidgetOf<QCalendarWidget>(calendar);
  const QDate wanted = DayToQt(day);
  picker.setCurrentPage(wanted.year(), wanted.month());
  auto& days = *picker.findChild<QTableView*>();
  // The names of the days come first, then at least one day of the month before.
  const int before =
      (QDate(wanted.year(), wanted.month(), 1).dayOfWeek() - picker.firstDayOfWeek() + 6) % 7 + 1;
  const int place = before + wanted.day() - 1;
  const QModelIndex cell = days.model()->index(1 + place / 7, days.model()->columnCount() - 7 + place % 7);
  ClickAt(*days.viewport(), days.visualRect(cell).center());
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
