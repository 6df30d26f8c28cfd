// Texts of many lines, with or without an emphasised part. Texts of several megabytes are common here: the
// text is set only when it has changed, and not before it is to be seen; what the user types reaches the
// model as the edit that it is; and nothing walks the text when the insertion point moves.

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/TextControls.h"
#include "core/Surroundings.h"
#include "desktop/ControlFace.h"
#include "desktop/QtValues.h"

namespace qel {

namespace {

bool IsDoubleBreak(std::string_view text, std::size_t at) { return text.substr(at, 2) == "\r\n"; }

// The place behind `count` shown characters that begin at `from`.
std::size_t Behind(std::string_view text, std::size_t from, int count) {
  for (; count > 0 && from < text.size(); --count) from += IsDoubleBreak(text, from) ? 2 : 1;
  return from;
}

std::ptrdiff_t DoubleBreaks(std::string_view text) {
  std::ptrdiff_t count = 0;
  for (auto at = text.find('\r'); at != text.npos; at = text.find('\r', at + 1))
    count += IsDoubleBreak(text, at);
  return count;
}

class TextAreaFace : public ControlFace {
 public:
  TextAreaFace(FormFace& form, TextBox& model, QPlainTextEdit& area);
  bool Filter(QWidget& watched, QEvent& event) override;

 private:
  // A line break is one character in the widget; in the model CR LF are two, and CR or LF alone is one.
  enum class Breaks { Single, Double, Mixed };
  // In the widget's characters: what stands at `at` has taken the place of `removed` characters.
  struct Edit {
    int at, removed, added;
  };
  struct Range {
    int start, length;
    bool operator==(const Range&) const = default;
  };

  void Paste(const std::string& text);
  void PasteSelected(const QPoint& at);
  void ShowMenu(const QContextMenuEvent& event);

  void Push() override;
  void PushLocked();
  void PushText();
  void PushSelection();
  void PushEmphasis();
  void Emphasise(const RichTextBox::Emphasis& part, const QTextCharFormat& format);

  void NoteEdit(int at, int removed, int added);
  void TakeEdit();
  void Replace(const Edit& made);
  std::string Typed(const Edit& made) const;
  void TakeSelection();

  int LengthShown() const;
  int ModelOffset(int shown) const;
  int ShownOffset(int offset) const;
  Range ModelSelection() const { return {model.SelStart(), model.SelLength()}; }

  TextBox& model;
  QPlainTextEdit& area;
  std::optional<int> shownEdition;      // of the model's text
  std::optional<Range> shownSelection;  // in the model's characters
  std::optional<Edit> edit;             // that the model has not heard of yet
  int shownLength = 0;
  RichTextBox::Emphasis shownEmphasis;
  Breaks breaks = Breaks::Double;
  bool takingText = false;
};

TextAreaFace::TextAreaFace(FormFace& form, TextBox& model, QPlainTextEdit& area)
    : ControlFace(form, model, &area), model(model), area(area) {
  connect(area.document(), &QTextDocument::contentsChange, this,
          [this](int at, int removed, int added) { NoteEdit(at, removed, added); });
  connect(&area, &QPlainTextEdit::textChanged, this, [this] { TakeEdit(); });
  connect(&area, &QPlainTextEdit::selectionChanged, this, [this] { TakeSelection(); });
  connect(&area, &QPlainTextEdit::cursorPositionChanged, this, [this] { TakeSelection(); });
}

bool TextAreaFace::Filter(QWidget& watched, QEvent& event) {
  const bool isText = &watched == &area || &watched == area.viewport();
  switch (event.type()) {
    case QEvent::Show:
      if (&watched == &area) Refresh();
      break;
    case QEvent::KeyPress:
      if (!static_cast<QKeyEvent&>(event).matches(QKeySequence::Paste)) break;
      Paste(CurrentHost().ClipboardText());
      return true;
    case QEvent::MouseButtonRelease:
      if (!isText || static_cast<QMouseEvent&>(event).button() != Qt::MiddleButton) break;
      PasteSelected(static_cast<QMouseEvent&>(event).pos());
      return true;
    case QEvent::ContextMenu:
      if (!isText) break;
      ShowMenu(static_cast<QContextMenuEvent&>(event));
      return true;
    case QEvent::Drop:
      return static_cast<QDropEvent&>(event).mimeData()->formats().isEmpty();
    default:
      break;
  }
  return ControlFace::Filter(watched, event);
}

// Pasting is the model's from the start: the toolkit's own takes the first of the formats that are offered,
// even where none is.
void TextAreaFace::Paste(const std::string& text) {
  Tell([this, &text] {
    model.SetFocus();
    if (model.HasFocus()) model.UserPaste(text);
  });
}

// What is selected in any window, to where the middle button was pressed.
void TextAreaFace::PasteSelected(const QPoint& at) {
  if (area.isReadOnly()) return;
  area.setTextCursor(area.cursorForPosition(at));
  Paste(LinesFromQt(QGuiApplication::clipboard()->text(QClipboard::Selection)));
}

void TextAreaFace::ShowMenu(const QContextMenuEvent& event) {
  QMenu* const menu = area.createStandardContextMenu();
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (QAction* action : menu->actions())
    if (action->objectName() == QStringLiteral("edit-paste")) {
      action->disconnect();
      connect(action, &QAction::triggered, this, [this] { Paste(CurrentHost().ClipboardText()); });
    }
  menu->popup(event.globalPos());
}

void TextAreaFace::Push() {
  ControlFace::Push();
  const QSignalBlocker silent(area);
  PushLocked();
  if (!area.isVisible()) return;
  PushText();
  if (!takingText) PushSelection();
  PushEmphasis();
}

// The keys select in a locked text too.
void TextAreaFace::PushLocked() {
  if (area.isReadOnly() == model.Locked()) return;
  area.setReadOnly(model.Locked);
  if (model.Locked) area.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void TextAreaFace::PushText() {
  if (shownEdition == model.Edition()) return;
  const std::string& text = model.Text;
  area.setPlainText(LinesToQt(text));
  const auto pairs = DoubleBreaks(text);
  const auto isEach = [&](char half) { return std::count(text.begin(), text.end(), half) == pairs; };
  breaks = isEach('\r') && isEach('\n')           ? Breaks::Double
           : text.find('\r') == std::string::npos ? Breaks::Single
                                                  : Breaks::Mixed;
  shownEdition = model.Edition();
  shownLength = LengthShown();
  shownSelection.reset();
  shownEmphasis = {};
}

void TextAreaFace::PushSelection() {
  if (shownSelection == ModelSelection()) return;
  shownSelection = ModelSelection();
  QTextCursor cursor = area.textCursor();
  const int start = ShownOffset(model.SelStart());
  const int end = ShownOffset(model.SelStart() + model.SelLength());
  if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
  cursor.setPosition(start);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  area.setTextCursor(cursor);
}

void TextAreaFace::PushEmphasis() {
  const auto* const rich = dynamic_cast<const RichTextBox*>(&model);
  if (!rich || rich->Emphasised() == shownEmphasis) return;
  Emphasise(shownEmphasis, QTextCharFormat());
  shownEmphasis = rich->Emphasised;
  QTextCharFormat format;
  if (shownEmphasis.Size > 0) format.setFontPointSize(static_cast<qreal>(shownEmphasis.Size));
  if (shownEmphasis.Bold) format.setFontWeight(QFont::Bold);
  format.setFontUnderline(shownEmphasis.Underline);
  Emphasise(shownEmphasis, format);
}

void TextAreaFace::Emphasise(const RichTextBox::Emphasis& part, const QTextCharFormat& format) {
  if (part.Length <= 0) return;
  QTextCursor cursor(area.document());
  cursor.setPosition(ShownOffset(part.Start));
  cursor.setPosition(ShownOffset(part.Start + part.Length), QTextCursor::KeepAnchor);
  cursor.setCharFormat(format);
}

// The toolkit counts the end of the document as a character of the edits that reach it.
void TextAreaFace::NoteEdit(int at, int removed, int added) {
  if (form.IsPushing()) return;
  const int length = LengthShown();
  const Edit made{at, std::min(removed, shownLength - at), std::min(added, length - at)};
  const bool isWhole = !edit && made.removed >= 0 && shownLength - made.removed + made.added == length;
  edit = isWhole ? made : Edit{0, shownLength, length};  // several at once count as one that changes all
}

void TextAreaFace::TakeEdit() {
  if (form.IsPushing() || !edit) return;
  const Edit made = *std::exchange(edit, std::nullopt);
  shownLength = LengthShown();
  takingText = true;
  Tell([this, &made] {
    model.SetFocus();
    if (model.HasFocus() && !model.Locked)
      Replace(made);
    else
      shownEdition.reset();  // the edit does not stand
  });
  takingText = false;
  TakeSelection();
}

void TextAreaFace::Replace(const Edit& made) {
  const int start = ModelOffset(made.at);
  const auto end = Behind(model.Text(), static_cast<std::size_t>(start), made.removed);
  const std::string typed = Typed(made);
  model.Select(start, static_cast<int>(end) - start);
  if (model.SelText() == typed) return;
  if (breaks == Breaks::Single && typed.find('\n') != std::string::npos) breaks = Breaks::Mixed;
  shownEdition = model.Edition() + 1;  // what the model makes of it in Change is shown again
  model.ReplaceSelection(typed);
  // A CR and a LF that have come together are one line break now.
  if (breaks == Breaks::Mixed && ShownOffset(static_cast<int>(model.Text().size())) != shownLength)
    shownEdition.reset();
}

std::string TextAreaFace::Typed(const Edit& made) const {
  QTextCursor cursor(area.document());
  cursor.setPosition(made.at);
  cursor.setPosition(made.at + made.added, QTextCursor::KeepAnchor);
  return FromQt(cursor.selectedText().replace(QChar::ParagraphSeparator, QStringLiteral("\r\n")));
}

void TextAreaFace::TakeSelection() {
  if (takingText || edit || form.IsPushing() || shownEdition != model.Edition()) return;
  const QTextCursor cursor = area.textCursor();
  const int start = ModelOffset(cursor.selectionStart());
  const Range selection{start, ModelOffset(cursor.selectionEnd()) - start};
  shownSelection = selection;
  if (selection == ModelSelection()) return;
  Tell([this, &selection] { model.Select(selection.start, selection.length); });
}

int TextAreaFace::LengthShown() const { return area.document()->characterCount() - 1; }

int TextAreaFace::ModelOffset(int shown) const {
  if (breaks == Breaks::Mixed) return static_cast<int>(Behind(model.Text(), 0, shown));
  return breaks == Breaks::Single ? shown : shown + area.document()->findBlock(shown).blockNumber();
}

int TextAreaFace::ShownOffset(int offset) const {
  const std::string_view before =
      std::string_view(model.Text()).substr(0, static_cast<std::size_t>(std::max(0, offset)));
  return std::min(static_cast<int>(before.size()) - static_cast<int>(DoubleBreaks(before)), LengthShown());
}

}  // namespace

std::unique_ptr<ControlFace> FaceOfTextArea(FormFace& form, Control& control) {
  return FaceOf<TextAreaFace, TextBox, QPlainTextEdit>(form, control);
}

}  // namespace qel
