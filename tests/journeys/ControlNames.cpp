#include "journeys/ControlNames.h"

#include "controls/Bars.h"
#include "controls/Buttons.h"
#include "controls/DrawingView.h"
#include "controls/ListView.h"
#include "controls/Lists.h"
#include "controls/Pickers.h"
#include "controls/TextControls.h"
#include "controls/Timetable.h"

namespace qel {

namespace {

template <class... Kinds>
Property<std::string>* CaptionOfOneOf(Control& control) {
  Property<std::string>* caption = nullptr;
  const auto look = [&]<class Kind>(Kind* kind) {
    if (kind) caption = &kind->Caption;
  };
  (look(dynamic_cast<Kinds*>(&control)), ...);
  return caption;
}

template <class Kind>
bool Is(const Control& control) {
  return dynamic_cast<const Kind*>(&control) != nullptr;
}

}  // namespace

std::string KindOf(const Control& control) {
  const struct {
    bool (*is)(const Control&);
    const char* kind;
  } kinds[] = {
      {Is<Button>, "button"},       {Is<CheckBox>, "check"},    {Is<OptionButton>, "option"},
      {Is<MenuItem>, "menu"},       {Is<Frame>, "frame"},       {Is<Picture>, "picture"},
      {Is<Timer>, "timer"},         {Is<Label>, "label"},       {Is<Document>, "page"},
      {Is<Timetable>, "timetable"}, {Is<RichTextBox>, "text"},  {Is<TextBox>, "field"},
      {Is<Toolbar>, "tool bar"},    {Is<StatusBar>, "status"},  {Is<ProgressBar>, "bar"},
      {Is<TabStrip>, "tabs"},       {Is<ComboBox>, "choice"},   {Is<ListBox>, "list"},
      {Is<ListView>, "table"},      {Is<Calendar>, "calendar"}, {Is<UpDown>, "up-down"},
      {Is<DrawingView>, "charts"},
  };
  for (const auto& row : kinds)
    if (row.is(control)) return row.kind;
  return "control";
}

Property<std::string>* CaptionOf(Control& control) {
  return CaptionOfOneOf<Button, CheckBox, OptionButton, MenuItem, Frame, Label>(control);
}

std::string NameOf(const Control& control) {
  if (control.Index() == Control::NoIndex) return control.Name();
  return control.Name() + "(" + std::to_string(control.Index()) + ")";
}

}  // namespace qel
