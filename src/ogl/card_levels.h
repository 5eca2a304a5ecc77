#pragma once

#include <iterator>
#include <string_view>

#include "d3d/direct3d_settings.h"

namespace kestrune::ogl {

/// The names in the cards' antialiasing table, by level.
inline constexpr std::string_view kAaLevels[] = {"0", "4", "q", "8"};
static_assert(std::size(kAaLevels) == d3d::kFullAntialiasing + 1);

/// The levels that the cards' anisotropic table knows.
inline constexpr int kAnisoLevels[] = {0, 2, 8, 16};

}  // namespace kestrune::ogl
