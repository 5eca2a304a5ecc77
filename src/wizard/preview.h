#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "d3d/d3ddet.h"
#include "wizard/optimize.h"

namespace kestrune::wizard {

/// What a control of the pages will show.
struct ShownValue {
  std::string_view id;
  std::string caption;  ///< the fixed part of a label that repeats the value; else empty
  std::string choice;
};

/// What the control behind a writer's code will show once the code is stored; nothing where the
/// driver at hand doesn't keep what the code stores.
std::optional<ShownValue> ShownAfter(const WriterCall& call, const d3d::Direct3DContext& context);

}  // namespace kestrune::wizard
