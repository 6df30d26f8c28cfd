// Controls that show or take text.
#pragma once

#include <string>

#include "controls/Control.h"

namespace qel {

class Label : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};

 private:
  bool TakesFocus() const override { return false; }
};

// Setting Text by program raises Change as typing does.
class TextBox : public Control {
 public:
  using Control::Control;

  Property<std::string> Text{[this] {
    ++edition;
    ShowChange();
    Clip();
    Change();
  }};
  // Another number after each change of Text, so that nobody has to compare texts of megabytes.
  int Edition() const { return edition; }
  Property<bool> Locked{Shown()};  // shows its text and lets nobody type
  int MaxLength = 0;               // characters that can be typed; 0 for any number

  Event<> Change;
  Event<KeyPress&> KeyPressed;  // a character is about to be typed; Handled keeps it out

  int SelStart() const { return selStart; }
  int SelLength() const { return selLength; }
  // Select characters from `start`, counted from 0; what lies outside the text is left out.
  void Select(int start, int length);
  std::string SelText() const;
  // Puts `text` in place of the selection, and the insertion point behind it.
  void ReplaceSelection(const std::string& text);

  // The user types over the selection, character by character, or puts a whole text in.
  void UserType(const std::string& characters);
  void UserText(const std::string& text);

 private:
  void Clip() { Select(selStart, selLength); }

  int edition = 0;
  int selStart = 0;
  int selLength = 0;
};

// A text box for texts of one shape: "#" in Mask is a digit's place, "A" a letter's or digit's, all else
// stands for itself. Places that are not filled show as "_".
class MaskedEdit : public TextBox {
 public:
  using TextBox::TextBox;
  Property<std::string> Mask{Shown()};

  // Whether a text has the mask's shape, all places filled. Any text has an empty mask's.
  bool Fits(const std::string& text) const;
};

// A text box of which parts can be emphasised.
class RichTextBox : public TextBox {
 public:
  using TextBox::TextBox;

  struct Emphasis {
    int Start = 0, Length = 0;
    float Size = 0;
    bool Bold = false, Underline = false;
    bool operator==(const Emphasis&) const = default;
  };
  Property<Emphasis> Emphasised{Shown()};
};

// A page to read, with links.
class Document : public Control {
 public:
  using Control::Control;

  // Paragraphs, headings, lists, tables and <a href="..."> links. Another page is shown from its top.
  Property<std::string> Html{Shown()};

  Event<const std::string&> LinkClick;  // what the link names
  // The user follows a link.
  void UserLink(const std::string& target);
};

}  // namespace qel
