#pragma once

#include <functional>

#include "controls/control.h"

namespace kestrune::controls {

/// Where the keyboard is. A face ties the two functions while it lives; without them, as in a
/// terminal, the focus is nowhere and stays there.
class Focus {
 public:
  /// The control with the focus; null for none.
  const Control* Where() const { return where ? where() : nullptr; }
  /// Leaves the focus where it is when the control can't take it. A window comes to the front.
  void MoveTo(const Control& control) const {
    if (move_to) move_to(control);
  }

  std::function<const Control*()> where;
  std::function<void(const Control&)> move_to;
};

}  // namespace kestrune::controls
