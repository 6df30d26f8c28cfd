// A picture that is drawn from an SVG drawing, sharp at every size. The dynamic property "svg" names the
// drawing, such as ":/icons/animation.svg".
#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace qel {

class PictureWidget : public QWidget {
 public:
  explicit PictureWidget(QWidget* parent = nullptr);

  // 0 shows the whole drawing, n above 0 its element with the id "frame<n>", if it has one, and a negative
  // number nothing.
  void SetFrame(int wanted);
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QSvgRenderer drawing;
  int frame = 0;
};

}  // namespace qel
