#include "desktop/DrawingAccess.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <vector>

#include "desktop/DrawingArea.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

class PlaceAccess : public QAccessibleInterface {
 public:
  PlaceAccess(DrawingArea& area, int place) : area(area), place(place) {}

  bool isValid() const override { return area.Model() && place < area.Model()->PlaceCount(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&area); }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !isValid()) return QString();
    const DrawingView& model = *area.Model();
    return ToQt(model.Drawings()[model.DrawingOf(place)].Heading + " - " + model.Place(place).Words);
  }
  QRect rect() const override {
    if (!isValid()) return QRect();
    const QRect room = area.RoomOf(place).toAlignedRect();
    return QRect(area.viewport()->mapToGlobal(room.topLeft()), room.size());
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = state.selectable = true;
    state.focused = state.selected = isValid() && area.Model()->InHand() == place && area.hasFocus();
    state.invisible = !isValid() || !area.isVisible();
    return state;
  }

 private:
  DrawingArea& area;
  const int place;
};

class DrawingAccess : public QAccessibleWidget {
 public:
  explicit DrawingAccess(DrawingArea& area) : QAccessibleWidget(&area, QAccessible::List), area(area) {}
  ~DrawingAccess() override {
    for (const auto id : ids) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return area.Model() ? area.Model()->PlaceCount() : 0; }
  QAccessibleInterface* child(int place) const override {
    if (place < 0 || place >= childCount()) return nullptr;
    while (ids.size() <= static_cast<std::size_t>(place))
      ids.push_back(
          QAccessible::registerAccessibleInterface(new PlaceAccess(area, static_cast<int>(ids.size()))));
    return QAccessible::accessibleInterface(ids[static_cast<std::size_t>(place)]);
  }
  int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (int place = 0; place < childCount(); ++place)
      if (child(place) == wanted) return place;
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    return area.Model() ? child(area.PlaceAt(area.viewport()->mapFromGlobal(QPoint(x, y)))) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    return area.Model() ? child(area.Model()->InHand()) : nullptr;
  }

 private:
  DrawingArea& area;
  mutable std::vector<QAccessible::Id> ids;  // of the places that were asked for
};

QAccessibleInterface* AccessOf(const QString&, QObject* object) {
  auto* const area = dynamic_cast<DrawingArea*>(object);
  return area ? new DrawingAccess(*area) : nullptr;
}

}  // namespace

void TellPlacesOfDrawings() {
  static const bool installed = (QAccessible::installFactory(AccessOf), true);
  static_cast<void>(installed);
}

}  // namespace qel
