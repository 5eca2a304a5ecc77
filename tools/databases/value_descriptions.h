#pragma once

#include <cstdint>
#include <string_view>

namespace kestrune::databases {

/// What a number of a value means.
struct NumberWords {
  std::int32_t number = 0;
  std::string_view words = {};
  int from_driver = 0;  ///< the first release with a meaning for it
};

inline constexpr std::size_t kMostWords = 10;

/// What a player is told of a value, whatever the release. The meanings of its numbers come from
/// the settings; those here stand beside them, or in their place.
struct ValueDescription {
  std::string_view name;
  std::string_view prose;
  NumberWords numbers[kMostWords] = {};  ///< up to the first without words
};

/// The description of a value by its name in the driver's key, in any case; null for another.
const ValueDescription* FindDescription(std::string_view name);

}  // namespace kestrune::databases
