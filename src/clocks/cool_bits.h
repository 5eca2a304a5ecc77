#pragma once

#include <cstdint>
#include <string_view>

#include "detect/versions.h"

namespace kestrune::clocks {

/// The driver's switch for clock control, below HKEY_LOCAL_MACHINE and platform::kTweakKey.
inline constexpr std::string_view kCoolBitsValue = "CoolBits";
/// The numbers that unlock it: on Windows 9x and older drivers, and since.
inline constexpr std::int32_t kCoolBitsOld = 3;
inline constexpr std::int32_t kCoolBitsAll = -1;
/// The one that a system and driver take.
std::int32_t CoolBitsOn(const detect::VersionState& versions);

}  // namespace kestrune::clocks
