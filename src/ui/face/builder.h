#pragma once

#include <functional>
#include <unordered_set>
#include <vector>

#include "controls/controls.h"
#include "ui/forms/form.h"

namespace kestrune::face {

/// Whether a keyboard reaches a control, as far as its kind and role say. The tab order is that of
/// the form.
bool TakesFocus(controls::Control& control);

/// The option that an arrow key leads to from another one of its group: the next that can be used,
/// or the one before; itself where there is no other.
controls::OptionButton& OptionBeside(controls::OptionButton& option, bool forwards);

/// Says which controls of a form's window get their widgets, and when: all at the start, but a
/// frame that stands directly in the window (a page, a help topic) with all that is in it when it
/// is first shown. Menu items get none. The form outlives it.
class Builder {
 public:
  /// `make` makes one widget; what the control stands in has its own by then. `built` is called
  /// whenever some have been made.
  Builder(const forms::Form& form, std::function<void(controls::Control&)> make,
          std::function<void()> built);
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;

  void Start();

 private:
  void BuildUnder(const controls::Control& top);
  bool IsWanted(controls::Control& control, const controls::Control& top) const;
  bool WaitsToBeShown(controls::Control& control) const;

  const forms::Form& form_;
  const controls::Control& window_;
  std::function<void(controls::Control&)> make_;
  std::function<void()> built_;
  std::unordered_set<const controls::Control*> has_widget_;
  std::vector<controls::Subscription> subscriptions_;
};

}  // namespace kestrune::face
