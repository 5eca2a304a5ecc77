#pragma once

#include <cstdint>
#include <string_view>

#include "detect/versions.h"

namespace kestrune::detect {

/// The key of the driver's tweak service, below HKEY_LOCAL_MACHINE, and its switch for clock
/// control.
inline constexpr std::string_view kTweakKey = "SOFTWARE\\NVIDIA Corporation\\Global\\NVTweak";
inline constexpr std::string_view kCoolBitsValue = "CoolBits";

/// The numbers that unlock clock control: on Windows 9x and older drivers, and since.
inline constexpr std::int32_t kCoolBitsOld = 3;
inline constexpr std::int32_t kCoolBitsAll = -1;
inline constexpr int kFirstCoolBitsAllDriver = 4041;

/// The one that a system and driver take.
inline std::int32_t CoolBitsOn(const VersionState& versions) {
  const bool all = versions.OSFamily != kWindows9x && versions.DrvVer >= kFirstCoolBitsAllDriver;
  return all ? kCoolBitsAll : kCoolBitsOld;
}

}  // namespace kestrune::detect
