// Controls that are clicked: buttons, check boxes, options, menu items, pictures, and timers, which click
// themselves.
#pragma once

#include <string>

#include "controls/Control.h"

namespace qel {

class Button : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};  // "&" marks the access key
};

// Setting Value by program raises Click as the user's click does.
class CheckBox : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};
  Property<bool> Value{ShownThen([this] {
    if (!clicking) Click();
  })};

 private:
  void TakeClick() override {
    clicking = true;
    Value = !Value;
    clicking = false;
  }
  bool clicking = false;  // the click itself raises the event
};

// One of a group: the options of the form that share its name. Setting one sets the others back and raises
// Click.
class OptionButton : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};
  Property<bool> Value{ShownThen([this] { TakeValue(); })};

 private:
  void TakeClick() override {
    clicking = true;
    Value = true;
    clicking = false;
  }
  void TakeValue();
  bool clicking = false;
};

class MenuItem : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};
  Property<bool> Checked{Shown()};

 private:
  bool TakesFocus() const override { return false; }
};

// A frame around other controls, or a picture: what it shows is the face's.
class Frame : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{Shown()};

 private:
  bool TakesFocus() const override { return false; }
};

class Picture : public Control {
 public:
  using Control::Control;
  static constexpr int NoFrame = -1;
  // Of a row of pictures, counted from 1; 0 for the picture of the design, NoFrame for none at all.
  Property<int> Frame{Shown()};

 private:
  bool TakesFocus() const override { return false; }
};

// Ticks every Interval milliseconds while it is enabled. The face keeps the time; a test calls Tick.
class Timer : public Control {
 public:
  Timer(Surface surface, std::string name, int interval, Event<>::Handler elapsed = {})
      : Control(surface, std::move(name)) {
    Interval = interval;
    Elapsed = std::move(elapsed);
  }
  Property<int> Interval{Shown()};
  Event<> Elapsed;

  void Tick() {
    if (Enabled) Elapsed();
  }

 private:
  bool TakesFocus() const override { return false; }
};

}  // namespace qel
