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

 private:
  QToolButton up, down;
};

}  // namespace qel
