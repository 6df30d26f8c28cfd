// A picture of days by the hour: who has each minute of them. It is looked at, or told in words.
#pragma once

#include <string>
#include <vector>

#include "controls/Control.h"

namespace qel {

class Timetable : public Control {
 public:
  using Control::Control;

  static constexpr int Nobody = -1;
  static constexpr int MinutesOfDay = 1440;

  // Minutes of a day, counted from 0, the last one included; who has them counts from 0 too, or is Nobody.
  struct Stretch {
    int From, To, Holder;
    bool operator==(const Stretch&) const = default;
  };
  struct Day {
    std::string Name;
    std::vector<Stretch> Stretches;
    bool operator==(const Day&) const = default;
  };
  struct Content {
    std::vector<Day> Days;
    std::vector<std::string> Holders;
    std::string NobodyName;
    std::string InWords;  // the same for who cannot see it
    bool operator==(const Content&) const = default;
  };
  Property<Content> Shows{Shown()};

 private:
  bool TakesFocus() const override { return false; }
};

}  // namespace qel
