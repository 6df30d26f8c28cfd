#include "desktop/TextAreaFace.h"

#include <QEvent>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "desktop/QtValues.h"

namespace qel {

TextAreaFace::TextAreaFace(FormFace& form, TextBox& model, QPlainTextEdit& area)
    : ControlFace(form, model, &area), model(model), area(area) {
  connect(&area, &QPlainTextEdit::textChanged, this, [this] { TakeText(); });
  connect(&area, &QPlainTextEdit::selectionChanged, this, [this] { TakeSelection(); });
  connect(&area, &QPlainTextEdit::cursorPositionChanged, this, [this] { TakeSelection(); });
}

bool TextAreaFace::Filter(QWidget& watched, QEvent& event) {
  if (&watched == &area && event.type() == QEvent::Show) Refresh();
  return ControlFace::Filter(watched, event);
}

void TextAreaFace::Push() {
  ControlFace::Push();
  const QSignalBlocker silent(area);
  area.setReadOnly(model.Locked);
  if (!area.isVisible()) return;
  PushText();
  if (!takingText) PushSelection();
  PushEmphasis();
}

void TextAreaFace::PushText() {
  if (shownText == model.Text()) return;
  shownText = model.Text;
  hasWideBreaks = shownText.find("\r\n") != std::string::npos;
  shownEmphasis = {};
  area.setPlainText(LinesToQt(shownText));
}

void TextAreaFace::PushSelection() {
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

void TextAreaFace::TakeText() {
  if (form.IsPushing()) return;
  takingText = true;
  // The raw text keeps non-breaking blanks.
  QString typed = area.document()->toRawText();
  typed.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
  hasWideBreaks = true;
  shownText = FromQt(typed);
  const std::string text = shownText;
  Tell([this, &text] { model.UserText(text); });
  takingText = false;
  TakeSelection();
}

void TextAreaFace::TakeSelection() {
  if (takingText || form.IsPushing() || shownText != model.Text()) return;
  const QTextCursor cursor = area.textCursor();
  const int start = ModelOffset(cursor.selectionStart());
  const int length = ModelOffset(cursor.selectionEnd()) - start;
  if (start == model.SelStart() && length == model.SelLength()) return;
  Tell([this, start, length] { model.Select(start, length); });
}

int TextAreaFace::ModelOffset(int shown) const {
  return hasWideBreaks ? shown + area.document()->findBlock(shown).blockNumber() : shown;
}

int TextAreaFace::ShownOffset(int offset) const {
  const int within = std::clamp(offset, 0, static_cast<int>(shownText.size()));
  const int breaks =
      hasWideBreaks ? static_cast<int>(std::count(shownText.begin(), shownText.begin() + within, '\n')) : 0;
  return std::min(within - breaks, area.document()->characterCount() - 1);
}

}  // namespace qel
