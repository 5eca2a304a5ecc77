#include "controls/gate.h"

namespace kestrune::controls {

namespace {

/// Says for as long as it lives which control acts.
class ActScope {
 public:
  ActScope(const Control*& acting, const Control& control) : acting_(acting) { acting_ = &control; }
  ~ActScope() { acting_ = nullptr; }
  ActScope(const ActScope&) = delete;
  ActScope& operator=(const ActScope&) = delete;

 private:
  const Control*& acting_;
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
  const Refusal refusal = acting_ != nullptr ? Refusal::kBusy : Check(control);
  if (refusal != Refusal::kNone) return refusal;
  const ActScope acting(acting_, control);
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
