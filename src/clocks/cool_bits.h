#pragma once

#include <cstdint>
#include <string_view>

#include "detect/versions.h"

namespace kestrune::clocks {

/// The driver's switch for clock control, below HKEY_LOCAL_MACHINE and platform::kTweakKey.
inline constexpr std::string_view kCoolBitsValue = "CoolBits";
/// The number that unlocks clock control on a system and driver.
std::int32_t CoolBitsOn(const detect::VersionState& versions);
/// Whether a stored number unlocks it on some system and driver.
bool IsCoolBitsOn(std::int32_t number);

}  // namespace kestrune::clocks
