#include "controls/control_set.h"

#include <cstdio>
#include <cstdlib>

namespace kestrune::controls {

bool ControlSet::Add(Control& control) { return controls_.emplace(control.Id(), &control).second; }

Control* ControlSet::Find(std::string_view id) const {
  const auto found = controls_.find(id);
  return found == controls_.end() ? nullptr : found->second;
}

void ControlSet::Missing(std::string_view id) {
  std::fprintf(stderr, "no control of that kind: %.*s\n", static_cast<int>(id.size()), id.data());
  std::abort();
}

}  // namespace kestrune::controls
