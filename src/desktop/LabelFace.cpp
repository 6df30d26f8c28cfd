// Labels: captions with access keys, and texts that the program writes.

#include <QLabel>
#include <QVariant>
#include <algorithm>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

// A label that has a buddy may have an access key, which leads there. One with the property "room" has place
// for so many digits side by side and so many lines, in every font, and grows with a text of more lines.
class LabelFace : public ClickableFace {
 public:
  LabelFace(FormFace& form, Label& model, QLabel& label)
      : ClickableFace(form, model, &label), model(model), label(label) {
    label.setTextFormat(Qt::PlainText);
    MakeRoom();
  }

 private:
  void Pull() override {
    ControlFace::Pull();
    if (model.Caption().empty()) model.Caption = FromQt(label.text());
  }
  void Push() override {
    ControlFace::Push();
    QString text = LinesToQt(model.Caption());
    if (label.buddy()) text = WithAccessKey(text, label.property("accessKey").toString());
    if (label.text() == text) return;
    label.setText(text);
    MakeRoom();
  }
  void MakeRoom() {
    const QSize room = label.property("room").toSize();
    if (room.isEmpty()) return;
    const QFontMetrics font = label.fontMetrics();
    const int width = room.width() * font.horizontalAdvance(u'0');
    label.setMinimumSize(width, std::max(room.height() * font.lineSpacing(), label.heightForWidth(width)));
  }
  Label& model;
  QLabel& label;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfLabel(FormFace& form, Control& control) {
  return FaceOf<LabelFace, Label, QLabel>(form, control);
}

}  // namespace qel
