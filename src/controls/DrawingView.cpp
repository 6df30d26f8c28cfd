#include "controls/DrawingView.h"

#include <algorithm>
#include <cmath>

namespace qel {

namespace {

constexpr double Reach = 4;  // units around a place that still belong to it: bars can be low and thin

double Outside(double from, double length, double at) {
  return std::max({from - at, at - from - length, 0.0});
}

bool Overlap(double a, double aLength, double b, double bLength) {
  return a < b + bLength && b < a + aLength;
}

}  // namespace

void DrawingView::SetDrawings(std::vector<Drawing> wanted) {
  drawings = std::move(wanted);
  places.clear();
  for (std::size_t i = 0; i < drawings.size(); ++i)
    for (const auto& place : drawings[i].Places) places.push_back({i, &place});
  inHand = NoPlace;
  last = 0;
  ++edition;
  ShowChange();
  PlaceChange();
}

int DrawingView::PlaceAt(std::size_t drawing, double x, double y) const {
  int found = NoPlace;
  double nearest = Reach;
  for (int i = 0; i < PlaceCount(); ++i) {
    if (DrawingOf(i) != drawing) continue;
    const DrawnPlace& place = Place(i);
    const double distance = std::hypot(Outside(place.X, place.Width, x), Outside(place.Y, place.Height, y));
    if (distance >= nearest) continue;
    nearest = distance;
    found = i;
  }
  return found;
}

std::string DrawingView::Told() const {
  return inHand == NoPlace ? "" : drawings[DrawingOf(inHand)].Heading + " - " + Place(inHand).Words;
}

void DrawingView::UserPoint(int place) {
  if (!Usable()) return;
  byKeys = false;
  Take(place);
}

void DrawingView::UserPick() {
  if (!Usable() || inHand == NoPlace) return;
  if (const int target = Place(inHand).Target; target != 0) TargetClick(target);
}

void DrawingView::TakeEntry() {
  byKeys = false;
  if (inHand == NoPlace && PlaceCount() > 0) Take(last);
}

void DrawingView::TakeKey(KeyPress& press) {
  if (PlaceCount() == 0 || press.Control || press.Alt) return;
  press.Handled = byKeys = true;
  switch (press.key) {
    case Key::Left:
    case Key::Right:
    case Key::Up:
    case Key::Down:
      return Take(inHand == NoPlace ? last : Beside(press.key));
    case Key::PageUp:
      return Take(NextDrawing(-1));
    case Key::PageDown:
      return Take(NextDrawing(1));
    case Key::Home:
      return Take(0);
    case Key::End:
      return Take(PlaceCount() - 1);
    case Key::Enter:
      return UserPick();
    default:
      press.Handled = press.Character == ' ';
      if (press.Handled) UserPick();
  }
}

void DrawingView::Take(int place) {
  if (place == inHand) return;
  inHand = place;
  if (place != NoPlace) last = place;
  ShowChange();
  PlaceChange();
}

// The nearest place in a row or column with the one in hand; beyond its end the next one in order, and below
// and above it the next drawing.
int DrawingView::Beside(Key key) const {
  const bool lies = key == Key::Left || key == Key::Right, ahead = key == Key::Right || key == Key::Down;
  const DrawnPlace& from = Place(inHand);
  int found = NoPlace;
  double nearest = 0;
  for (int i = 0; i < PlaceCount(); ++i) {
    const DrawnPlace& to = Place(i);
    if (DrawingOf(i) != DrawingOf(inHand)) continue;
    if (lies ? !Overlap(from.Y, from.Height, to.Y, to.Height) : !Overlap(from.X, from.Width, to.X, to.Width))
      continue;
    const double way = lies ? to.X - from.X : to.Y - from.Y, distance = ahead ? way : -way;
    if (distance <= 0 || (found != NoPlace && distance >= nearest)) continue;
    nearest = distance;
    found = i;
  }
  if (found != NoPlace) return found;
  if (!lies) return NextDrawing(ahead ? 1 : -1);
  return std::clamp(inHand + (ahead ? 1 : -1), 0, PlaceCount() - 1);
}

// Its first place; the place in hand where there is no such drawing.
int DrawingView::NextDrawing(int step) const {
  const int from = inHand == NoPlace ? last : inHand;
  const auto wanted = static_cast<std::size_t>(static_cast<int>(DrawingOf(from)) + step);
  const auto found = std::find_if(places.begin(), places.end(),
                                  [wanted](const auto& place) { return place.first == wanted; });
  return found == places.end() ? from : static_cast<int>(found - places.begin());
}

}  // namespace qel
