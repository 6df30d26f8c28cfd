#include "desktop/ControlFace.h"

#include <QAbstractScrollArea>
#include <QCalendarWidget>
#include <QComboBox>
#include <QEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTableView>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

#include "controls/Form.h"
#include "desktop/Look.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

// The part of a widget that is coloured: of what scrolls, all within its frame; of a calendar, its days.
QWidget* SurfaceOf(QWidget* widget) {
  if (auto* const area = qobject_cast<QAbstractScrollArea*>(widget)) return area->viewport();
  return qobject_cast<QCalendarWidget*>(widget) ? widget->findChild<QTableView*>() : widget;
}

// What a surface paints its ground with. Neither a list that drops down nor a calendar names it as its role.
QPalette::ColorRole GroundOf(const QWidget& surface) {
  const bool fillsWithBase =
      qobject_cast<const QComboBox*>(&surface) || qobject_cast<const QTableView*>(&surface);
  return fillsWithBase ? QPalette::Base : surface.backgroundRole();
}

constexpr int ClickTime = 250;  // milliseconds

}  // namespace

ControlFace::ControlFace(FormFace& form, Control& control, QWidget* widget)
    : form(form), control(control), widget(widget) {}

void ControlFace::Attach() {
  if (widget) designFont = widget->font();
  Pull();
  shownFont = control.Font;
  control.ViewChanged = [this] { Refresh(); };
  Refresh();
}

void ControlFace::Detach() { control.ViewChanged = nullptr; }

void ControlFace::Refresh() {
  if (form.IsReleased()) return;
  {
    const FormFace::Pushing pushing(form);
    Push();
  }
  if (control.HasFocus()) form.Focus().Follow();
}

bool ControlFace::Filter(QWidget& watched, QEvent& event) {
  if (&watched == widget && (event.type() == QEvent::Resize || event.type() == QEvent::Move) &&
      form.IsLaidOut(*widget))
    PullPlace();
  return false;
}

void ControlFace::Pull() {
  if (!widget) return;
  if (control.ToolTipText().empty()) control.ToolTipText = FromQt(widget->toolTip());
  if (control.Font() == Font()) control.Font = FromQt(widget->font());
  if (control.Width == 0 && control.Height == 0) PullPlace();
}

void ControlFace::Push() {
  if (!widget) return;
  const QSignalBlocker silent(widget);
  if (widget->isHidden() == control.Visible()) widget->setVisible(control.Visible);
  if (widget->isEnabledTo(widget->parentWidget()) != control.Enabled()) widget->setEnabled(control.Enabled);
  PushToolTip();
  if (!(control.Font() == shownFont)) {
    shownFont = control.Font;
    widget->setFont(ToQt(shownFont, designFont));
  }
  PushPlace();
  PushColours();
}

// A reason not to take what the user gave stands in place of the tool tip, and comes up by itself: once the
// click is over that led to it, which would take it down again.
void ControlFace::PushToolTip() {
  const bool refuses = !control.Refusal().empty();
  const QString tip =
      PlainToolTip(refuses ? ToQt(control.Refusal())
                           : WithKeys(ToQt(control.ToolTipText()), widget->property("keys").toString()));
  if (widget->toolTip() == tip) return;
  widget->setToolTip(tip);
  if (std::exchange(showsReason, refuses) && !refuses) QToolTip::hideText();
  if (refuses) QTimer::singleShot(ClickTime, this, [this] { ShowReason(); });
}

void ControlFace::ShowReason() {
  if (showsReason && widget->isVisible())
    QToolTip::showText(widget->mapToGlobal(QPoint(0, widget->height())), widget->toolTip(), widget);
}

void ControlFace::PullPlace() {
  const QRect place = widget->geometry();
  control.Left = Twips(place.left());
  control.Top = Twips(place.top());
  control.Width = Twips(place.width());
  control.Height = Twips(place.height());
}

void ControlFace::PushPlace() {
  if (form.IsLaidOut(*widget)) return;
  const QRect place(Pixels(control.Left), Pixels(control.Top), std::max(0, Pixels(control.Width)),
                    std::max(0, Pixels(control.Height)));
  if (widget->geometry() != place) widget->setGeometry(place);
}

void ControlFace::PushColours() {
  const SystemColour back = control.Refusal().empty() ? control.BackColor() : SystemColour::Refused;
  if (shownFore == control.ForeColor() && shownBack == back) return;
  shownFore = control.ForeColor;
  shownBack = back;
  QWidget* const surface = SurfaceOf(widget);
  QPalette palette;
  const QPalette::ColorRole ground = GroundOf(*surface);
  const QPalette::ColorRole text = ground == QPalette::Base ? QPalette::Text : surface->foregroundRole();
  // What is disabled stays grey, whatever colour its text has when it is not.
  if (shownFore != SystemColour::Default)
    for (const auto group : {QPalette::Active, QPalette::Inactive})
      palette.setColor(group, text, ColourOf(shownFore));
  if (shownBack != SystemColour::Default) palette.setColor(ground, ColourOf(shownBack));
  surface->setPalette(palette);
  surface->setAutoFillBackground(shownBack != SystemColour::Default ||
                                 qobject_cast<QAbstractScrollArea*>(widget));
}

bool ClickableFace::Filter(QWidget& watched, QEvent& event) {
  const auto type = event.type();
  const bool isPress = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (&watched != Widget() || !(isPress || type == QEvent::MouseButtonRelease))
    return ControlFace::Filter(watched, event);
  const auto& mouse = static_cast<QMouseEvent&>(event);
  if (mouse.button() != Qt::LeftButton) return false;
  const bool completesClick = std::exchange(pressed, type == QEvent::MouseButtonPress) && !isPress;
  if (completesClick && Widget()->rect().contains(mouse.pos())) Tell([this] { Bound().UserClick(); });
  if (type == QEvent::MouseButtonDblClick) Tell([this] { Bound().UserDblClick(); });
  return true;
}

}  // namespace qel
