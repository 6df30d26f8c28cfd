#include "journeys/WindowText.h"

#include <map>
#include <sstream>

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/DrawingView.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "controls/Timetable.h"
#include "journeys/ControlNames.h"
#include "journeys/Design.h"
#include "support/Text.h"
#include "values/CodePage.h"
#include "values/DateText.h"
#include "values/NumberConversion.h"

namespace qel {

namespace {

std::string Quoted(const std::string& text) { return '"' + Quotable(ToUtf8(text)) + '"'; }

const char* const ColourTexts[] = {"", "in text colour", "on white", "on grey", "grey", "red", "on red"};

std::string FontText(const Font& font) {
  return (font.Name.empty() ? "" : " in " + font.Name) + (font.Size > 0 ? " " + NumberText(font.Size) : "") +
         (font.Bold ? " bold" : "") + (font.Italic ? " italic" : "");
}

class Writer {
 public:
  Writer(const Form& form, bool withTips) : design(Design::Of(form)), withTips(withTips) {
    for (const Control* control : form.Controls()) bound[design.Of(*control)] = control;
  }

  std::vector<Shown> Write() {
    for (const Element& child : design.Window().Children) Walk(child, 0);
    return std::move(shown);
  }

 private:
  const Control* Bound(const Element& element) const {
    const auto found = bound.find(&element);
    return found == bound.end() ? nullptr : found->second;
  }

  // Layouts are passed through; menus and bars name what they show by its name.
  void Walk(const Element& element, int depth) {
    const bool isWidget = element.Tag == "widget";
    const Control* const control = isWidget ? Bound(element) : nullptr;
    if (control && !control->IsShown()) return;
    if (control && !dynamic_cast<const Timer*>(control)) Tell(*control, element, depth);
    if (isWidget && !control) TellText(element, depth);
    const bool isMenu = element.Attribute("class") == "QMenu" || element.Attribute("class") == "QMenuBar";
    const int below = depth + (control || element.Attribute("class") == "QGroupBox" ? 1 : 0);
    for (const Element& child : element.Children) {
      if (isMenu && child.Tag == "addaction") WalkMenu(child.Name(), below);
      if (!isMenu && (child.Tag == "widget" || child.Tag == "layout" || child.Tag == "item"))
        Walk(child, below);
    }
  }

  void WalkMenu(const std::string& name, int depth) {
    const Element* const element = design.Find(name);
    if (!element) return;  // a separator
    if (element->Tag == "widget") return Walk(*element, depth);
    if (const Control* control = Bound(*element)) {
      if (control->IsShown()) Tell(*control, *element, depth);
    } else {
      TellText(*element, depth);
    }
  }

  // A text of the design that no handler ever changes.
  void TellText(const Element& element, int depth) {
    std::string text = element.Property("text");
    if (text.empty()) text = element.Property("title");
    if (!text.empty())
      shown.push_back(
          {element.Name(), {std::string(2 * static_cast<std::size_t>(depth), ' ') + Quoted(text)}});
  }

  void Tell(const Control& control, const Element& element, int depth) {
    indent = std::string(2 * static_cast<std::size_t>(depth), ' ');
    below.clear();
    std::string line = indent + NameOf(control) + " " + KindOf(control) + Content(control);
    line += State(control, element);
    below.insert(below.begin(), line);
    shown.push_back({NameOf(control), below});
    if (const auto* bar = dynamic_cast<const Toolbar*>(&control)) TellButtons(*bar);
  }

  std::string Content(const Control& control) {
    if (const auto* caption = CaptionOf(const_cast<Control&>(control))) {
      std::string text = " " + Quoted((*caption)());
      if (const auto* check = dynamic_cast<const CheckBox*>(&control); check && check->Value)
        text += " checked";
      if (const auto* option = dynamic_cast<const OptionButton*>(&control); option && option->Value)
        text += " chosen";
      if (const auto* item = dynamic_cast<const MenuItem*>(&control); item && item->Checked)
        text += " checked";
      return text;
    }
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) return TextOf(*box);
    if (const auto* bar = dynamic_cast<const Toolbar*>(&control)) return bar->Flat ? " flat" : "";
    if (const auto* bar = dynamic_cast<const StatusBar*>(&control)) return PanelsOf(*bar);
    if (const auto* bar = dynamic_cast<const ProgressBar*>(&control))
      return " " + std::to_string(bar->Value()) + "%";
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control)) return TabsOf(*strip);
    if (const auto* list = dynamic_cast<const ListBox*>(&control)) return ItemsOf(*list);
    if (const auto* list = dynamic_cast<const ListView*>(&control)) return RowsOf(*list);
    if (const auto* view = dynamic_cast<const DrawingView*>(&control)) return PlacesOf(*view);
    if (const auto* table = dynamic_cast<const Timetable*>(&control))
      return " " + Quoted(table->Shows().InWords);
    if (const auto* page = dynamic_cast<const Document*>(&control)) return Lines(page->Html());
    if (const auto* calendar = dynamic_cast<const Calendar*>(&control))
      return DayOf(std::min(calendar->Value(), DateSerial(9999, 12, 31)));
    if (const auto* picture = dynamic_cast<const Picture*>(&control); picture && picture->Frame != 0)
      return " " + std::to_string(picture->Frame());
    return "";
  }

  std::string Lines(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      below.push_back(indent + "  | " + ToUtf8(line) + (line.ends_with(' ') ? "\u00B6" : ""));
    }
    return "";
  }

  std::string TextOf(const TextBox& box) {
    std::string state;
    const std::string& text = box.Text;
    if (text.find('\n') == std::string::npos)
      state = " " + Quoted(text);
    else
      Lines(text);
    // A field that is entered is selected as a whole, which says no more.
    if (box.SelLength() > 0 && box.HasFocus() && box.SelLength() < static_cast<int>(text.size()))
      state += " selected from " + std::to_string(box.SelStart()) + " " + Quoted(box.SelText());
    if (box.Locked) state += " locked";
    if (const auto* rich = dynamic_cast<const RichTextBox*>(&box); rich && rich->Emphasised().Length > 0) {
      const auto& part = rich->Emphasised();
      state +=
          " with " +
          Quoted(text.substr(static_cast<std::size_t>(part.Start), static_cast<std::size_t>(part.Length))) +
          FontText({"", part.Size, part.Bold, false}) + (part.Underline ? " underlined" : "");
    }
    return state;
  }

  void TellButtons(const Toolbar& bar) {
    for (const ToolButton& button : const_cast<Toolbar&>(bar).Buttons()) {
      if (button.IsSeparator() || !button.Visible) continue;
      const std::string name = NameOf(bar) + " \"" + button.Key + '"';
      std::string line = indent + "  " + name;
      if (button.Pressed) line += " pressed";
      if (!button.Enabled) line += " off";
      if (withTips) line += " tip " + Quoted(button.ToolTipText);
      shown.push_back({name, {line}});
    }
  }

  static std::string PanelsOf(const StatusBar& bar) {
    std::string text;
    for (const std::string& panel : bar.Panels()) text += " " + Quoted(panel);
    return text;
  }

  std::string TabsOf(const TabStrip& strip) {
    int number = 0;
    for (const Tab& tab : strip.Tabs())
      below.push_back(indent + (++number == strip.SelectedTab() ? "  > " : "    ") + Quoted(tab.Caption) +
                      (withTips ? " tip " + Quoted(tab.ToolTipText) : ""));
    return "";
  }

  // Only the chosen entry of a list that drops down, and all with tips; all of one that stands open.
  std::string ItemsOf(const ListBox& list) {
    if (const auto* combo = dynamic_cast<const ComboBox*>(&list)) {
      std::string text = " " + Quoted(combo->Text());
      if (withTips)
        for (const std::string& item : list.Items())
          text += (&item == &list.Items().front() ? " of " : ", ") + ToUtf8(item);
      return text;
    }
    for (int i = 0; i < list.ListCount(); ++i)
      below.push_back(indent + (i == list.ListIndex() ? "  > " : "    ") +
                      ToUtf8(list.Items()[static_cast<std::size_t>(i)]));
    return "";
  }

  std::string RowsOf(const ListView& list) {
    static const char* const Alignments[] = {"", " right", " centred"};
    std::string header;
    for (const ListColumn& column : list.Columns())
      header += (header.empty() ? "" : " | ") + ToUtf8(column.Text) + "(" + std::to_string(column.Width) +
                (column.Least > 0 ? ", at least " + std::to_string(column.Least) : "") +
                Alignments[static_cast<int>(column.Alignment)] + ")";
    shown.push_back({NameOf(list) + " columns",
                     {indent + NameOf(list) + " columns " + header + FontText(OwnFont(list))}});
    for (int row = 1; row <= list.RowCount(); ++row) {
      const ListRow& content = list.Row(row);
      std::string cells = Cell(content.Text);
      if (content.SmallIcon != 0) cells += " icon " + std::to_string(content.SmallIcon);
      for (const std::string& cell : content.SubItems) cells += " | " + Cell(cell);
      below.push_back(indent + (row == list.SelectedRow() ? "  > " : "  | ") + cells);
      below.back().erase(below.back().find_last_not_of(' ') + 1);
    }
    if (!withTips) return "";
    return std::string(list.FullRowSelect ? " of whole rows" : "") +
           (list.HideSelection ? "" : " always marked");
  }

  // What leads to a connection, with its number.
  std::string PlacesOf(const DrawingView& view) {
    std::vector<std::string> places = {indent + NameOf(view) + " places"};
    std::size_t next = 0;
    for (int i = 0; i < view.PlaceCount(); ++i) {
      for (; next <= view.DrawingOf(i); ++next)
        places.push_back(indent + "  " + ToUtf8(view.Drawings()[next].Heading) + ". " +
                         ToUtf8(view.Drawings()[next].Caption));
      const int target = view.Place(i).Target;
      places.push_back(indent + "  | " + ToUtf8(view.Place(i).Words) +
                       (target == 0 ? "" : " -> " + std::to_string(target)));
    }
    shown.push_back({NameOf(view) + " places", std::move(places)});
    return view.Told().empty() ? "" : " at " + Quoted(view.Told());
  }

  // A rule of a hundred dots says as much with four.
  static std::string Cell(const std::string& text) {
    return text.size() > 20 && text.find_first_not_of('.') == std::string::npos ? "...." : ToUtf8(text);
  }

  // With name and size for lists and texts alone, whose fonts users choose, and only where no other control
  // of the window has the same, as a face gives them.
  Font OwnFont(const Control& control) const {
    Font font = control.Font;
    bool isOwn = dynamic_cast<const ListView*>(&control) || dynamic_cast<const RichTextBox*>(&control);
    for (const auto& [element, other] : bound)
      if (other != &control && other->Font->Name == font.Name && other->Font->Size == font.Size)
        isOwn = false;
    return isOwn ? font : Font{"", 0, font.Bold, font.Italic};
  }

  static std::string DayOf(Date day) { return " " + ToUtf8(DateText(day)); }

  std::string State(const Control& control, const Element& element) {
    std::string state;
    if (!control.Usable()) state += " off";
    for (const SystemColour colour : {control.ForeColor(), control.BackColor()})
      if (colour != SystemColour::Default) state += std::string(" ") + ColourTexts[static_cast<int>(colour)];
    if (!dynamic_cast<const ListView*>(&control)) state += FontText(OwnFont(control));
    if (!control.Refusal().empty()) state += " refuses: " + Quoted(control.Refusal());
    const std::string& tip = control.ToolTipText;
    if (tip.empty() ? !element.Property("toolTip").empty() : withTips || tip != element.Property("toolTip"))
      state += " tip " + Quoted(tip);
    return state;
  }

  const Design& design;
  const bool withTips;
  std::map<const Element*, const Control*> bound;
  std::string indent;
  std::vector<std::string> below;  // of the control in hand
  std::vector<Shown> shown;
};

}  // namespace

std::vector<Shown> WindowText(const Form& form, bool withTips) { return Writer(form, withTips).Write(); }

}  // namespace qel
