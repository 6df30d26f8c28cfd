// Controls that show or take text.
#pragma once

#include <functional>
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

  Property<std::string> Text{[this] { TakeText(); }};
  // Another number after each change of Text, so that nobody has to compare texts of megabytes.
  int Edition() const { return edition; }
  Property<bool> Locked{Shown()};  // shows its text and lets nobody type
  int MaxLength = 0;               // characters that can be typed; 0 for any number
  bool SelectsOnTab = true;        // the tab key that leads here selects the text

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
  // The user pastes over the selection; nothing happens where there is no text to paste.
  void UserPaste(const std::string& text);
  // What all of it comes to: `text` takes the place of `length` characters from `start` on.
  virtual void UserReplace(int start, int length, const std::string& text);

 protected:
  // The user's work made this of the text, and left the insertion point there.
  void TakeTyping(const std::string& whole, int insertion);
  // The program has set another text: what is selected of it.
  virtual void SelectAnew() { Select(selStart, selLength); }

 private:
  void TakeText();

  bool typing = false;  // the text is changed by the user
  int edition = 0;
  int selStart = 0;
  int selLength = 0;
};

// A text box for texts of one shape: "#" in Mask is a digit's place, "A" a letter's or digit's, all else
// stands for itself. Places that are not filled show as "_".
//
// Entering it selects all of it, and so does a text that the program puts in while it has the focus: the
// first character that is typed then empties the mask. What is typed fills place by place (see MaskEntry.h);
// a text of another shape is edited as any text is.
class MaskedEdit : public TextBox {
 public:
  using TextBox::TextBox;
  Property<std::string> Mask{Shown()};

  // Whether a text has the mask's shape, all places filled. Any text has an empty mask's.
  bool Fits(const std::string& text) const;

  // What a text that was pasted means, in the mask's shape; empty where it means nothing. What is not
  // understood is typed character by character.
  std::function<std::string(const std::string& pasted)> Understands;

  void UserReplace(int start, int length, const std::string& text) override;

 private:
  void TakeEntry() override { SelectAll(); }
  void TakeExit() override;
  void SelectAnew() override;
  void SelectAll() { Select(0, static_cast<int>(Text().size())); }
  std::string Understood(const std::string& pasted) const;
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
