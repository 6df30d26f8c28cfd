#include "desktop/UpDownButton.h"

#include <QVBoxLayout>

namespace qel {

UpDownButton::UpDownButton(QWidget* parent) : QWidget(parent), up(this), down(this) {
  // The names mark the two as the toolkit's own parts of one widget.
  up.setObjectName("qt_up");
  down.setObjectName("qt_down");
  up.setArrowType(Qt::UpArrow);
  down.setArrowType(Qt::DownArrow);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  for (QToolButton* arrow : {&up, &down}) {
    arrow->setAutoRepeat(true);
    arrow->setFocusPolicy(Qt::NoFocus);
    arrow->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    column->addWidget(arrow);
  }
  setFocusPolicy(Qt::NoFocus);
}

}  // namespace qel
