#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kestrune::monitor {

/// The colours of the lines of both processors and of the memory.
inline constexpr const char* kFirstColour = "#00ff00";
inline constexpr const char* kSecondColour = "#ff0000";
inline constexpr const char* kMemoryColour = "#0000ff";

/// Where a percentage stands above a chart's ground, in twips from the chart's upper edge: also
/// outside of the chart, as far as there are numbers for it.
constexpr int HeightOf(int percent, int ground, int twips_a_percent) {
  const std::int64_t height = ground - std::int64_t{twips_a_percent} * percent;
  return static_cast<int>(std::clamp<std::int64_t>(height, std::numeric_limits<int>::min(),
                                                   std::numeric_limits<int>::max()));
}

}  // namespace kestrune::monitor
