// The design of a window as its .ui file has it: what stands on it, in which order, with which texts. Windows
// played without the toolkit get their captions, tool tips and sizes from here, as they get them from the
// face.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "controls/Form.h"

namespace qel {

// One element of an XML document.
struct Element {
  std::string Tag, Text;
  std::map<std::string, std::string> Attributes;
  std::vector<Element> Children;

  std::string Attribute(const std::string& name) const;
  std::string Name() const { return Attribute("name"); }
  // The text of a property of a widget or action in Windows-1252; empty where it has none.
  std::string Property(const std::string& property) const;
  bool IsSet(const std::string& property) const { return Property(property) == "true"; }
};

class Design {
 public:
  // Of the form's name. Every form has one.
  static const Design& Of(const Form& form);

  const Element& Window() const { return window; }
  // Whether the design says how large the window is, or leaves that to its layout.
  bool HasSize() const { return Size() != nullptr; }
  // The widget or action of a name, or nullptr.
  const Element* Find(const std::string& name) const;
  // The element that shows a control.
  const Element* Of(const Control& control) const;

  // Tells the form and its controls the captions, tool tips and sizes that are not set yet.
  void TellTo(Form& form) const;

 private:
  void Read(const std::string& form);
  void Index(const Element& element);
  const Element* Size() const;
  Element window;
  std::map<std::string, const Element*> byName;
};

}  // namespace qel
