#include "journeys/Design.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/TextControls.h"
#include "journeys/ControlNames.h"
#include "support/Text.h"
#include "values/CodePage.h"

namespace qel {

namespace {

constexpr int TwipsPerPixel = 15;

std::string Decoded(std::string text) {
  const std::pair<std::string, std::string> entities[] = {{"&lt;", "<"},   {"&gt;", ">"},   {"&quot;", "\""},
                                                          {"&apos;", "'"}, {"&#10;", "\n"}, {"&amp;", "&"}};
  for (const auto& [entity, character] : entities) text = WithEach(text, entity, character);
  return FromUtf8Lossy(text);
}

// Reads the XML that designers write: elements, attributes in double quotes, text, comments.
class XmlReader {
 public:
  explicit XmlReader(std::string document) : document(std::move(document)) {}

  Element Read() {
    Element root;
    ReadContent(root);
    return root.Children.at(0);
  }

 private:
  std::string Until(const std::string& mark) {
    const auto end = document.find(mark, at);
    if (end == std::string::npos) throw std::runtime_error("a design ends before " + mark);
    const std::string text = document.substr(at, end - at);
    at = end + mark.size();
    return text;
  }

  void ReadContent(Element& parent) {
    while (document.find('<', at) != std::string::npos) {
      parent.Text += Decoded(Until("<"));
      if (document.compare(at, 3, "!--") == 0) {
        Until("-->");
      } else if (document[at] == '?') {
        Until("?>");
      } else {
        std::string tag = Until(">");
        if (tag.front() == '/') return;
        ReadElement(parent.Children.emplace_back(), std::move(tag));
      }
    }
  }

  void ReadElement(Element& element, std::string tag) {
    const bool isEmpty = tag.back() == '/';
    if (isEmpty) tag.pop_back();
    element.Tag = tag.substr(0, tag.find_first_of(" \n"));
    for (std::size_t quote = 0; (quote = tag.find("=\"", quote)) != std::string::npos;) {
      const auto name = tag.find_last_of(" \n", quote) + 1;
      const auto end = tag.find('"', quote + 2);
      element.Attributes[tag.substr(name, quote - name)] = Decoded(tag.substr(quote + 2, end - quote - 2));
      quote = end;
    }
    if (!isEmpty) ReadContent(element);
  }

  std::string document;
  std::size_t at = 0;
};

const Element* Child(const Element& element, const std::string& tag) {
  for (const Element& child : element.Children)
    if (child.Tag == tag) return &child;
  return nullptr;
}

void Tell(Property<std::string>& text, const Element& element, const char* property) {
  if (text().empty()) text = element.Property(property);
}

bool IsBold(const Element& element) {
  for (const Element& child : element.Children)
    if (child.Tag == "property" && child.Name() == "font")
      if (const Element* bold = Child(child.Children.at(0), "bold")) return bold->Text == "true";
  return false;
}

void TellTabs(TabStrip& strip, const Element& element) {
  std::vector<Tab> tabs;
  for (const Element& page : element.Children)
    if (page.Tag == "widget") {
      Tab& tab = tabs.emplace_back();
      for (const Element& attribute : page.Children)
        if (attribute.Tag == "attribute")
          (attribute.Name() == "title" ? tab.Caption : tab.ToolTipText) = attribute.Children.at(0).Text;
    }
  if (strip.Tabs().empty() && !tabs.empty()) strip.SetTabs(std::move(tabs));
}

}  // namespace

std::string Element::Attribute(const std::string& name) const {
  const auto found = Attributes.find(name);
  return found == Attributes.end() ? "" : found->second;
}

std::string Element::Property(const std::string& property) const {
  for (const Element& child : Children)
    if (child.Tag == "property" && child.Name() == property) return child.Children.at(0).Text;
  return "";
}

void Design::Read(const std::string& form) {
  std::ifstream file(std::string(QEL_SOURCE_DIR) + "/src/desktop/forms/" + form + ".ui");
  if (!file) throw std::runtime_error("no design of " + form);
  const Element document = XmlReader({std::istreambuf_iterator<char>(file), {}}).Read();
  window = *Child(document, "widget");
  Index(window);
}

void Design::Index(const Element& element) {
  if (element.Tag == "widget" || element.Tag == "action") byName[element.Name()] = &element;
  for (const Element& child : element.Children) Index(child);
}

const Design& Design::Of(const Form& form) {
  static std::map<std::string, Design> designs;
  Design& design = designs[form.Name()];
  if (design.byName.empty()) design.Read(form.Name());
  return design;
}

const Element* Design::Find(const std::string& name) const {
  const auto found = byName.find(name);
  return found == byName.end() ? nullptr : found->second;
}

const Element* Design::Of(const Control& control) const {
  const bool isOneOfMany = control.Index() != Control::NoIndex;
  return Find(control.Name() + (isOneOfMany ? "_" + std::to_string(control.Index()) : ""));
}

const Element* Design::Size() const {
  for (const Element& child : window.Children)
    if (child.Tag == "property" && child.Name() == "geometry") return &child.Children.at(0);
  return nullptr;
}

void Design::TellTo(Form& form) const {
  if (form.Caption().empty()) form.Caption = window.Property("windowTitle");
  if (const Element* size = Size()) {
    if (form.Width == 0) form.Width = std::stoi(Child(*size, "width")->Text) * TwipsPerPixel;
    if (form.Height == 0) form.Height = std::stoi(Child(*size, "height")->Text) * TwipsPerPixel;
  }
  for (Control* control : form.Controls()) {
    const Element* const element = Of(*control);
    if (!element) continue;
    if (auto* caption = CaptionOf(*control))
      Tell(*caption, *element, element->Property("title").empty() ? "text" : "title");
    Tell(control->ToolTipText, *element, "toolTip");
    if (IsBold(*element)) control->Font = {"", 0, true, false};
    if (auto* strip = dynamic_cast<TabStrip*>(control)) TellTabs(*strip, *element);
    if (auto* box = dynamic_cast<TextBox*>(control); box && box->MaxLength == 0)
      if (const std::string most = element->Property("maxLength"); !most.empty())
        box->MaxLength = std::stoi(most);
    if (auto* bar = dynamic_cast<Toolbar*>(control)) {
      std::size_t position = 0;
      for (const Element& added : element->Children)
        if (added.Tag == "addaction" && position < bar->Buttons().size()) {
          ToolButton& button = bar->Buttons()[position++];
          if (!button.IsSeparator()) Tell(button.ToolTipText, *Find(added.Name()), "toolTip");
        }
    }
  }
}

}  // namespace qel
