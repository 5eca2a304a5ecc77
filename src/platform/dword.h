#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrune::platform {

inline constexpr std::size_t kDwordSize = 4;

/// A number as the registry keeps it: four bytes, the least significant first.
inline std::array<std::byte, kDwordSize> DwordBytes(std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  std::array<std::byte, kDwordSize> bytes;
  for (std::size_t i = 0; i < kDwordSize; ++i) bytes[i] = static_cast<std::byte>(bits >> (8 * i));
  return bytes;
}

/// The number in the first four bytes, which must be there.
inline std::int32_t DwordOf(std::span<const std::byte> bytes) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < kDwordSize; ++i) {
    bits |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
  }
  return static_cast<std::int32_t>(bits);
}

}  // namespace kestrune::platform
