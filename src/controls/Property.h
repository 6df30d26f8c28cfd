// The values and events of a control, written as if they were plain members: `btnProcess.Enabled = false;`.
#pragma once

#include <functional>
#include <utility>

namespace qel {

// Something that happens to a control or form. One handler answers it.
template <typename... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event& operator=(Handler answer) {
    handler = std::move(answer);
    return *this;
  }
  void operator()(Args... args) const {
    if (handler) handler(std::forward<Args>(args)...);
  }

 private:
  Handler handler;
};

// A value that the shown control follows. Setting it to what it is already does nothing; setting it to
// something else tells the owner, which shows it, and then runs the owner's own reaction, such as raising
// Change.
template <typename T>
class Property {
 public:
  using Told = std::function<void()>;

  explicit Property(Told told, T initial = T()) : told(std::move(told)), value(std::move(initial)) {}
  Property(const Property&) = delete;

  Property& operator=(T wanted) {
    if (wanted == value) return *this;
    value = std::move(wanted);
    told();
    return *this;
  }
  Property& operator=(const Property& other) { return *this = other.value; }

  operator const T&() const { return value; }
  const T& operator()() const { return value; }
  const T* operator->() const { return &value; }

  friend bool operator==(const Property& property, const T& other) { return property.value == other; }

 private:
  Told told;
  T value;
};

}  // namespace qel
