#pragma once

#include <cstddef>
#include <vector>

#include "platform/registry_api.h"

namespace kestrune::platform {

/// Numbers open things, from 1. The number of a thing that was removed is given again.
template <class Thing>
class HandleTable {
 public:
  /// A place for a thing, as the last one left it there, so that its memory serves again.
  Thing& Add(RegHandle& handle) {
    if (free_.empty()) {
      places_.emplace_back();
      free_.push_back(static_cast<RegHandle>(places_.size()));
    }
    handle = free_.back();
    free_.pop_back();
    places_[handle - 1].is_open = true;
    return places_[handle - 1].thing;
  }
  /// Null when the handle stands for nothing.
  Thing* Find(RegHandle handle) {
    const bool is_open = handle > 0 && handle <= places_.size() && places_[handle - 1].is_open;
    return is_open ? &places_[handle - 1].thing : nullptr;
  }
  void Remove(RegHandle handle) {
    if (Find(handle) == nullptr) return;
    places_[handle - 1].is_open = false;
    free_.push_back(handle);
  }
  /// Visits everything that is open.
  template <class Visit>
  void ForEach(const Visit& visit) {
    ForEachHandle([&visit](RegHandle, Thing& thing) { visit(thing); });
  }
  template <class Visit>
  void ForEachHandle(const Visit& visit) {
    for (std::size_t i = 0; i < places_.size(); ++i) {
      if (places_[i].is_open) visit(static_cast<RegHandle>(i + 1), places_[i].thing);
    }
  }

 private:
  struct Place {
    Thing thing{};
    bool is_open = false;
  };

  std::vector<Place> places_;
  std::vector<RegHandle> free_;
};

}  // namespace kestrune::platform
