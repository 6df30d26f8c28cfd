// Fields of one line, masked ones among them: what is typed, pasted and selected there.

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QVariant>
#include <algorithm>
#include <string>
#include <utility>

#include "controls/MaskEntry.h"
#include "controls/TextControls.h"
#include "core/Surroundings.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

constexpr int AnyLength = 32767;  // what a line takes by default

// A field with the property "digits" is as wide as so many of them, its frame and the cursor, in every font.
void FitToDigits(QLineEdit& line) {
  constexpr int FrameAndCursor = 2;  // as digits
  if (const int digits = line.property("digits").toInt(); digits > 0)
    line.setFixedWidth(line.fontMetrics().horizontalAdvance(QString(digits + FrameAndCursor, u'0')));
}

// What is selected belongs to the model: the toolkit would select, and select no more, as the focus comes and
// goes.
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
    switch (event.type()) {
      case QEvent::FocusIn:
        Enter(static_cast<QFocusEvent&>(event).reason());
        return true;
      case QEvent::MouseButtonPress:
        NoteClick(static_cast<QMouseEvent&>(event));
        break;
      case QEvent::MouseButtonRelease:
        if (!std::exchange(keepsSelection, false)) break;
        static_cast<QObject&>(line).event(&event);
        if (!line.hasSelectedText() && model.HasFocus()) SelectAll();
        return true;
      case QEvent::KeyPress:
        if (TakeKey(static_cast<QKeyEvent&>(event))) return true;
        break;
      default:
        break;
    }
    return ControlFace::Filter(watched, event);
  }

 protected:
  void Push() override {
    ControlFace::Push();
    const QSignalBlocker silent(line);
    line.setReadOnly(model.Locked);
    const QString text = WantedText();
    line.setMaxLength(model.MaxLength > 0 ? std::max(model.MaxLength, static_cast<int>(text.size()))
                                          : AnyLength);
    if (line.text() != text) {
      line.setText(text);
      wasClicked = false;
    }
    if (!takingEdit && model.HasFocus()) PushSelection();
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

  // A field without the focus selects nothing; that is no news for its model.
  void TakeSelection() {
    const bool hasFocus = line.window()->focusWidget() == &line;  // be the window in front or not
    if (takingEdit || !hasFocus || line.text() != WantedText()) return;
    if (SelectionStart() == model.SelStart() && line.selectionLength() == model.SelLength()) return;
    Tell([this] { model.Select(SelectionStart(), static_cast<int>(line.selectionLength())); });
  }

  void Enter(Qt::FocusReason reason) {
    comesByClick = reason == Qt::MouseFocusReason;
    wasClicked = false;
    const bool byKey =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (byKey && model.SelectsOnTab && model.HasFocus()) SelectAll();
    // The toolkit knows the reason for selecting all of it.
    QFocusEvent entry(QEvent::FocusIn, byKey ? Qt::OtherFocusReason : reason);
    static_cast<QObject&>(line).event(&entry);
    Refresh();
  }

  // A click leaves alone what entering has selected, and the next one puts the cursor where it is. Dragging
  // selects as ever.
  void NoteClick(const QMouseEvent& press) {
    const bool isFirst = std::exchange(comesByClick, false) || (KeepsWhole() && !wasClicked);
    wasClicked = true;
    keepsSelection = isFirst && press.button() == Qt::LeftButton && line.hasSelectedText();
  }
  // Whether that holds too for a field that has the focus already.
  virtual bool KeepsWhole() const { return false; }

  void SelectAll() {
    Tell([this] { model.Select(0, static_cast<int>(model.Text().size())); });
  }

  bool TakeKey(const QKeyEvent& event) {
    // An empty clipboard would take away what is selected.
    if (event.matches(QKeySequence::Paste)) return CurrentHost().ClipboardText().empty();
    return TakeCharacter(event);
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
    takingEdit = wasClicked = true;
    const std::string before = FromQt(WantedText());
    const std::string now = FromQt(line.text());
    const auto cursor = std::min(static_cast<std::size_t>(line.cursorPosition()), now.size());
    const bool knowsSelection = model.HasFocus();  // a text may be dropped on a field that was left alone
    Tell([&] {
      model.SetFocus();
      if (!model.HasFocus() || model.Locked) return;
      knowsSelection ? Replace(before, now, cursor) : ReplaceDifference(before, now, cursor);
    });
    takingEdit = false;
    Refresh();
  }

  void Replace(const std::string& before, const std::string& now, std::size_t cursor) {
    const auto start = static_cast<std::size_t>(model.SelStart());
    const auto length = static_cast<std::size_t>(model.SelLength());
    const std::string kept = before.substr(std::min(start + length, before.size()));
    const bool isOverSelection = (length > 0 || now.size() > before.size()) &&
                                 now.size() >= start + kept.size() &&
                                 now.starts_with(before.substr(0, start)) && now.ends_with(kept);
    if (isOverSelection)
      model.UserReplace(model.SelStart(), model.SelLength(),
                        now.substr(start, now.size() - start - kept.size()));
    else
      ReplaceDifference(before, now, cursor);
  }

  void ReplaceDifference(const std::string& before, const std::string& now, std::size_t cursor) {
    std::size_t behind = now.size() - cursor;
    std::size_t ahead = 0;
    if (before.ends_with(now.substr(cursor))) {
      const auto most = std::min(cursor, before.size() - behind);
      while (ahead < most && before[ahead] == now[ahead]) ++ahead;
    } else {
      behind = 0;
    }
    model.UserReplace(static_cast<int>(ahead), static_cast<int>(before.size() - behind - ahead),
                      now.substr(ahead, now.size() - behind - ahead));
    if (model.Text() == now && behind == 0) model.Select(static_cast<int>(cursor), 0);
  }

  TextBox& model;
  QLineEdit& line;
  bool takingEdit = false;
  bool comesByClick = false;    // the focus: the press itself comes next
  bool wasClicked = false;      // since the focus or another text came
  bool keepsSelection = false;  // at the end of the click that is under way
};

// The mask is the model's: whatever way an edit comes, the model says what becomes of it.
class MaskedFace : public LineFace {
 public:
  MaskedFace(FormFace& form, MaskedEdit& model, QLineEdit& line)
      : LineFace(form, model, line), model(model) {}

 private:
  bool KeepsWhole() const override { return true; }
  // An empty field shows the blanks.
  QString WantedText() const override {
    if (!model.Text().empty() || model.Mask().empty()) return LineFace::WantedText();
    return ToQt(MaskEntry(model.Mask(), "").Text());
  }

  MaskedEdit& model;
};

}  // namespace

std::unique_ptr<ControlFace> FaceOfTextField(FormFace& form, Control& control) {
  if (auto face = FaceOf<MaskedFace, MaskedEdit, QLineEdit>(form, control)) return face;
  return FaceOf<LineFace, TextBox, QLineEdit>(form, control);
}

}  // namespace qel
