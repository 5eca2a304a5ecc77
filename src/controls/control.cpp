#include "controls/control.h"

#include <algorithm>

namespace kestrune::controls {

const Control& Control::Root() const {
  const Control* root = this;
  while (root->parent_ != nullptr) root = root->parent_;
  return *root;
}

bool Control::Usable() const {
  for (const Control* control = this; control != nullptr; control = control->parent_) {
    if (!control->enabled_ || !control->visible_) return false;
  }
  return true;
}

Subscription Control::Observe(std::function<void()> redraw) {
  const int number = ++last_observer_;
  observers_.push_back({number, std::move(redraw)});
  return Subscription([this, number] {
    std::erase_if(observers_, [number](const Observer& each) { return each.number == number; });
  });
}

void Control::Notify() {
  // A redraw may end its own subscription, so the list is walked over a copy.
  const std::vector<Observer> observers = observers_;
  for (const Observer& observer : observers) observer.redraw();
}

}  // namespace kestrune::controls
