// Texts of many lines, with or without an emphasised part. Texts of several megabytes are common here: the
// text is set only when it has changed, and not before it is to be seen; what the user types reaches the
// model as the edit that it is; and nothing walks the text when the insertion point moves.
#pragma once

#include <QPlainTextEdit>
#include <optional>
#include <string>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"

namespace qel {

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

}  // namespace qel
