// Texts of many lines, with or without an emphasised part. Texts of several megabytes are common here, so the
// text is set only when it has changed, and not before it is to be seen.
#pragma once

#include <QPlainTextEdit>
#include <string>

#include "controls/TextControls.h"
#include "desktop/ControlFace.h"

namespace qel {

class TextAreaFace : public ControlFace {
 public:
  TextAreaFace(FormFace& form, TextBox& model, QPlainTextEdit& area);
  bool Filter(QWidget& watched, QEvent& event) override;

 private:
  void Push() override;
  void PushText();
  void PushSelection();
  void PushEmphasis();
  void Emphasise(const RichTextBox::Emphasis& part, const QTextCharFormat& format);
  void TakeText();
  void TakeSelection();

  // A line break is two characters in the model, CR LF, and one in the widget.
  int ModelOffset(int shown) const;
  int ShownOffset(int offset) const;

  TextBox& model;
  QPlainTextEdit& area;
  std::string shownText;
  RichTextBox::Emphasis shownEmphasis;
  bool hasWideBreaks = false;  // CR LF
  bool takingText = false;
};

}  // namespace qel
