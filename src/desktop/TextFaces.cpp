// Labels and fields of one line, masked ones among them; the faces of all controls that show or take text.

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVariant>
#include <algorithm>
#include <string>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"
#include "desktop/DocumentFace.h"
#include "desktop/QtValues.h"
#include "desktop/TextAreaFace.h"

namespace qel {

namespace {

constexpr int AnyLength = 32767;  // what a line takes by default

// A field with the property "digits" is as wide as so many of them, its frame and the cursor, in every font.
void FitToDigits(QLineEdit& line) {
  constexpr int FrameAndCursor = 2;  // as digits
  if (const int digits = line.property("digits").toInt(); digits > 0)
    line.setFixedWidth(line.fontMetrics().horizontalAdvance(QString(digits + FrameAndCursor, u'0')));
}

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

class LineFace : public ControlFace {
 public:
  LineFace(FormFace& form, TextBox& model, QLineEdit& line)
      : ControlFace(form, model, &line), model(model), line(line) {
    FitToDigits(line);
    connect(&line, &QLineEdit::textEdited, this, [this] { TakeEdit(); });
    connect(&line, &QLineEdit::cursorPositionChanged, this, [this] { TakeSelection(); });
    connect(&line, &QLineEdit::selectionChanged, this, [this] { TakeSelection(); });
  }

  bool Filter(QWidget& watched, QEvent& event) override {
    if (event.type() == QEvent::KeyPress && TakeCharacter(static_cast<QKeyEvent&>(event))) return true;
    return ControlFace::Filter(watched, event);
  }

 protected:
  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(line);
    line.setReadOnly(model.Locked);
    const QString text = WantedText();
    if (line.inputMask().isEmpty())
      line.setMaxLength(model.MaxLength > 0 ? std::max(model.MaxLength, static_cast<int>(text.size()))
                                            : AnyLength);
    if (line.displayText() != text) line.setText(text);
    if (!takingEdit) PushSelection();
  }
  virtual QString WantedText() const { return ToQt(model.Text()); }

 private:
  void Pull() override {
    ControlFace::Pull();
    if (model.MaxLength == 0 && line.maxLength() != AnyLength) model.MaxLength = line.maxLength();
  }

  int SelectionStart() const {
    return line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
  }

  void PushSelection() {
    if (SelectionStart() == model.SelStart() && line.selectionLength() == model.SelLength()) return;
    if (model.SelLength() > 0)
      line.setSelection(model.SelStart(), model.SelLength());
    else
      line.setCursorPosition(model.SelStart());
  }

  void TakeSelection() {
    if (takingEdit || line.displayText() != WantedText()) return;
    if (SelectionStart() == model.SelStart() && line.selectionLength() == model.SelLength()) return;
    Tell([this] { model.Select(SelectionStart(), static_cast<int>(line.selectionLength())); });
  }

  // A handler may keep a character out or put another one in its place.
  bool TakeCharacter(const QKeyEvent& event) {
    const QString typed = event.text();
    const bool isCommand =
        event.modifiers().testFlag(Qt::ControlModifier) || event.modifiers().testFlag(Qt::AltModifier);
    if (isCommand || typed.size() != 1 || !typed.front().isPrint()) return false;
    KeyPress press = FromQt(event);
    press.Character = FromQt(typed).front();
    const char character = press.Character;
    Tell([this, &press] { model.KeyPressed(press); });
    if (press.Handled || press.Character == character) return press.Handled;
    line.insert(ToQt(std::string(1, press.Character)));
    return true;
  }

  // The model takes an edit as the replacement of the part that differs, so that Change finds the insertion
  // point behind what was typed.
  void TakeEdit() {
    takingEdit = true;
    const std::string now = FromQt(line.displayText());
    const auto cursor = std::min(static_cast<std::size_t>(line.cursorPosition()), now.size());
    Tell([&] {
      model.SetFocus();
      if (model.HasFocus() && !model.Locked) Replace(now, cursor);
    });
    takingEdit = false;
    Refresh();
  }

  void Replace(const std::string& now, std::size_t cursor) {
    const std::string before = model.Text;
    std::size_t behind = now.size() - cursor;
    std::size_t ahead = 0;
    if (before.ends_with(now.substr(cursor))) {
      const auto most = std::min(cursor, before.size() - behind);
      while (ahead < most && before[ahead] == now[ahead]) ++ahead;
    } else {
      behind = 0;
    }
    model.Select(static_cast<int>(ahead), static_cast<int>(before.size() - behind - ahead));
    model.ReplaceSelection(now.substr(ahead, now.size() - behind - ahead));
    if (model.Text() == now && behind == 0) model.Select(static_cast<int>(cursor), 0);
  }

  TextBox& model;
  QLineEdit& line;
  bool takingEdit = false;
};

// The mask is set only while the text has its shape, with or without blanks: other texts are shown as they
// are.
class MaskedFace : public LineFace {
 public:
  MaskedFace(FormFace& form, MaskedEdit& model, QLineEdit& line)
      : LineFace(form, model, line), model(model), line(line) {}

 private:
  void Push() override {
    const QString mask = HasShape() ? ToolkitMask() : QString();
    if (line.inputMask() != mask) {
      const QSignalBlocker silent(line);
      line.setMaxLength(AnyLength);
      line.setInputMask(mask);
    }
    LineFace::Push();
  }

  // An empty field shows the blanks.
  QString WantedText() const override {
    if (!model.Text().empty() || model.Mask().empty()) return LineFace::WantedText();
    std::string blanks = model.Mask;
    for (char& place : blanks)
      if (IsPlace(place)) place = '_';
    return ToQt(blanks);
  }

  bool HasShape() const {
    std::string filled = model.Text;
    for (std::size_t i = 0; i < filled.size() && i < model.Mask().size(); ++i)
      if (filled[i] == '_' && IsPlace(model.Mask()[i])) filled[i] = '0';
    return filled.empty() || model.Fits(filled);
  }

  // "0" and "n" are the toolkit's places for a digit, and for a letter or digit, that may stay blank.
  QString ToolkitMask() const {
    if (model.Mask().empty()) return {};
    QString mask;
    for (const QChar place : ToQt(model.Mask())) {
      if (place == u'#')
        mask += u'0';
      else if (place == u'A')
        mask += u'n';
      else
        mask += QStringLiteral("\\") + place;
    }
    return mask + QStringLiteral(";_");
  }

  static bool IsPlace(char place) { return place == '#' || place == 'A'; }

  MaskedEdit& model;
  QLineEdit& line;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfText(FormFace& form, Control& control) {
  if (dynamic_cast<Label*>(&control)) return FaceOf<LabelFace, Label, QLabel>(form, control);
  if (dynamic_cast<MaskedEdit*>(&control)) return FaceOf<MaskedFace, MaskedEdit, QLineEdit>(form, control);
  if (dynamic_cast<Document*>(&control)) return FaceOf<DocumentFace, Document, QTextBrowser>(form, control);
  if (auto area = FaceOf<TextAreaFace, TextBox, QPlainTextEdit>(form, control)) return area;
  return FaceOf<LineFace, TextBox, QLineEdit>(form, control);
}

}  // namespace qel
