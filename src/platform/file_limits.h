#pragma once

#include <cstddef>

namespace kestrune::platform {

/// What a data file, a description or a picture has at most, and registry text, in bytes.
inline constexpr std::size_t kLongestDataFile = 16 << 20;
inline constexpr std::size_t kLongestRegFile = 256 << 20;

}  // namespace kestrune::platform
