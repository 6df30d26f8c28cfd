// Drawings one below the other. The user goes over their places, the bars and days, with the pointer or the
// keys, and hears of each what it says.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "controls/Control.h"
#include "platform/Drawing.h"

namespace qel {

// Places count on from drawing to drawing, from 0.
class DrawingView : public Control {
 public:
  using Control::Control;
  static constexpr int NoPlace = -1;

  const std::vector<Drawing>& Drawings() const { return drawings; }
  void SetDrawings(std::vector<Drawing> wanted);
  int Edition() const { return edition; }  // another number for other drawings

  int PlaceCount() const { return static_cast<int>(places.size()); }
  const DrawnPlace& Place(int place) const { return *places[static_cast<std::size_t>(place)].second; }
  std::size_t DrawingOf(int place) const { return places[static_cast<std::size_t>(place)].first; }
  // The place at or right beside a point of a drawing, in its units, or NoPlace.
  int PlaceAt(std::size_t drawing, double x, double y) const;

  int InHand() const { return inHand; }     // NoPlace for none
  bool IsByKeys() const { return byKeys; }  // it was reached by them
  std::string Told() const;                 // what it says; empty for none

  Event<> PlaceChange;     // another one is in hand, or none
  Event<int> TargetClick;  // with what the place leads to

  void UserPoint(int place);  // NoPlace where the pointer is over none
  void UserPick();            // of the place in hand

 private:
  void TakeEntry() override;
  void TakeKey(KeyPress& press) override;
  void Take(int place);
  int Beside(Key key) const;
  int NextDrawing(int step) const;

  std::vector<Drawing> drawings;
  std::vector<std::pair<std::size_t, const DrawnPlace*>> places;  // with the drawing of each
  int edition = 0;
  int inHand = NoPlace;
  bool byKeys = false;
  int last = 0;  // that was in hand: the keys go on from it
};

}  // namespace qel
