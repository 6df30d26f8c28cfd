// Two small arrows, one above the other, that repeat while they are held. They leave the focus where it is.
#pragma once

#include <QToolButton>
#include <QWidget>

namespace qel {

class UpDownButton : public QWidget {
 public:
  explicit UpDownButton(QWidget* parent = nullptr);
  QToolButton& Up() { return up; }
  QToolButton& Down() { return down; }
  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override { return {18, 22}; }  // beside a field of one line

 private:
  QToolButton up, down;
};

}  // namespace qel
