#pragma once

#include <cstddef>
#include <string_view>

/// What the registry of Windows takes; lengths of names count characters of UTF-16. Each function
/// says in part of a sentence what is wrong, or gives null. What is in a registry already may break
/// these limits and can be read and deleted.
namespace kestrune::platform {

inline constexpr std::size_t kMostLevels = 512;  ///< below a root
inline constexpr std::size_t kLongestKeyName = 255;
inline constexpr std::size_t kLongestValueName = 16383;
inline constexpr std::size_t kLargestData = 1 << 20;  ///< bytes

const char* KeyFault(std::string_view path);
const char* ValueNameFault(std::string_view name);
const char* DataFault(std::size_t size);

}  // namespace kestrune::platform
