#pragma once

#include <string_view>
#include <unordered_map>

#include "controls/control.h"

namespace kestrune::controls {

/// Finds controls by their id. It owns none of them; each must outlive it.
class ControlSet {
 public:
  /// False when another control has that id already; then that one stays.
  [[nodiscard]] bool Add(Control& control);
  /// The control with that id, or null.
  Control* Find(std::string_view id) const;
  /// The control with that id, which must exist and be of that kind; anything else is a fault of
  /// the program's own tables and ends it.
  template <typename T>
  T& Get(std::string_view id) const {
    T* control = dynamic_cast<T*>(Find(id));
    if (control == nullptr) Missing(id);
    return *control;
  }

 private:
  [[noreturn]] static void Missing(std::string_view id);

  std::unordered_map<std::string_view, Control*> controls_;  ///< under the controls' own ids
};

}  // namespace kestrune::controls
