#include "controls/gate.h"

#include <utility>

namespace kestrune::controls {

namespace {

/// Holds a value for as long as it lives, and puts the former one back.
class Held {
 public:
  Held(const Control*& place, const Control* value)
      : place_(place), former_(std::exchange(place, value)) {}
  ~Held() { place_ = former_; }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

 private:
  const Control*& place_;
  const Control* former_;
};

bool EverywhereAround(const Control& control, bool (Control::*holds)() const) {
  for (const Control* each = &control; each != nullptr; each = each->Parent()) {
    if (!(each->*holds)()) return false;
  }
  return true;
}

}  // namespace

Refusal Gate::Check(const Control& control) const {
  const Control& window = control.Root();
  if (!window.Visible()) return Refusal::kWindowClosed;
  if (modal_ != nullptr && modal_ != &window) return Refusal::kBehindModal;
  if (!EverywhereAround(control, &Control::Visible)) return Refusal::kHidden;
  if (!EverywhereAround(control, &Control::Enabled)) return Refusal::kDisabled;
  return Refusal::kNone;
}

Refusal Gate::Act(const Control& control, const std::function<bool()>& act) {
  const Refusal refusal = Check(control);
  if (refusal != Refusal::kNone) return refusal;
  const Held held(acting_, &control);
  return act() ? Refusal::kNone : Refusal::kNotTaken;
}

Refusal Gate::Act(const Shortcut& shortcut) {
  return Act(*shortcut.control, [&shortcut] {
    if (shortcut.act) {
      shortcut.act();
    } else {
      shortcut.control->Click();
    }
    return true;
  });
}

}  // namespace kestrune::controls
