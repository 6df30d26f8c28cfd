// The calendar and the up-down button.

#include <QCalendarWidget>
#include <QEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "controls/Pickers.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"
#include "desktop/UpDownButton.h"

namespace qel {

namespace {

class CalendarFace : public ControlFace {
 public:
  CalendarFace(FormFace& form, Calendar& model, QCalendarWidget& calendar)
      : ControlFace(form, model, &calendar), model(model), calendar(calendar) {
    calendar.setDateEditEnabled(false);  // its field would take the keys that the model is asked about
    calendar.setDateRange({100, 1, 1}, {9999, 12, 31});  // what a date can be; the toolkit knows more
    NameParts();
    connect(&calendar, &QCalendarWidget::clicked, this, [this](const QDate& day) { Take(day, true); });
    connect(&calendar, &QCalendarWidget::selectionChanged, this, [this] {
      if (!mouseIsAtWork) Take(this->calendar.selectedDate(), false);
    });
    // Enter, which picks the day, or a double click, which has picked it before.
    connect(&calendar, &QCalendarWidget::activated, this, [this](const QDate& day) {
      if (!mouseIsAtWork) return Take(day, true);
      Tell([this] { this->model.UserDblClick(); });
    });
    connect(&calendar, &QCalendarWidget::currentPageChanged, this,
            [this](int year, int month) { TurnPage(year, month); });
  }

  bool Filter(QWidget& watched, QEvent& event) override {
    if (event.type() == QEvent::MouseButtonPress) mouseIsAtWork = true;
    if (event.type() == QEvent::KeyPress) mouseIsAtWork = false;
    return ControlFace::Filter(watched, event);
  }

 private:
  // The toolkit leaves them without, but screen readers need them.
  void NameParts() {
    const QString name = calendar.accessibleName();
    for (const auto& [part, called] : {std::pair{"qt_calendar_prevmonth", "previous month"},
                                       {"qt_calendar_nextmonth", "next month"},
                                       {"qt_calendar_monthbutton", "month"},
                                       {"qt_calendar_yearbutton", "year"},
                                       {"qt_calendar_yearedit", "year"},
                                       {"qt_calendar_calendarview", "days"}})
      if (auto* const widget = calendar.findChild<QWidget*>(part))
        widget->setAccessibleName(name + ", " + called);
  }

  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(calendar);
    const QDate day = DayToQt(model.Value);
    if (model.Value() != 0 && calendar.selectedDate() != day) calendar.setSelectedDate(day);
  }
  // Another month brings its own day along; the day that is chosen is always to be seen.
  void TurnPage(int year, int month) {
    const QDate chosen = calendar.selectedDate();
    if (chosen.year() == year && chosen.month() == month) return;
    Take(QDate(year, month, std::min(chosen.day(), QDate(year, month, 1).daysInMonth())), false);
  }
  void Take(const QDate& day, bool byMouse) {
    Tell([this, day, byMouse] { model.UserPick(DayFromQt(day), byMouse); });
  }
  Calendar& model;
  QCalendarWidget& calendar;
  bool mouseIsAtWork = false;
};

class UpDownFace : public ControlFace {
 public:
  UpDownFace(FormFace& form, UpDown& model, UpDownButton& arrows)
      : ControlFace(form, model, &arrows), model(model) {
    arrows.Up().setAccessibleName(arrows.accessibleName() + ", up");
    arrows.Down().setAccessibleName(arrows.accessibleName() + ", down");
    connect(&arrows.Up(), &QToolButton::clicked, this, [this] { Tell([this] { this->model.UserUp(); }); });
    connect(&arrows.Down(), &QToolButton::clicked, this,
            [this] { Tell([this] { this->model.UserDown(); }); });
  }

 private:
  UpDown& model;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfPicker(FormFace& form, Control& control) {
  if (auto* model = dynamic_cast<UpDown*>(&control)) {
    auto* arrows = dynamic_cast<UpDownButton*>(form.ObjectOf(control));
    return arrows ? std::make_unique<UpDownFace>(form, *model, *arrows) : nullptr;
  }
  return FaceOf<CalendarFace, Calendar, QCalendarWidget>(form, control);
}

}  // namespace qel
