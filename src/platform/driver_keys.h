#pragma once

#include <string>
#include <string_view>

namespace kestrune::platform {

/// The key of the driver's tweak service. To Windows both spellings are one key, but a trace prints
/// a key as it was asked for: the driver's switches are stored with the first one, and what belongs
/// to the clocks with the second.
inline constexpr std::string_view kTweakKey = "SOFTWARE\\NVIDIA Corporation\\Global\\NVTweak";
inline constexpr std::string_view kClockTweakKey = "Software\\NVIDIA Corporation\\Global\\NVTweak";

/// What stands in the hardware identifier of every card that has an NVIDIA processor.
inline constexpr std::string_view kVendorMark = "VEN_10DE";
/// What stands in a hardware identifier before the two characters of the revision.
inline constexpr std::string_view kRevisionMark = "REV_";

/// The path of one card below the tweak key; `identifier` is its hardware identifier from "VEN_" to
/// the revision.
inline std::string DeviceInstanceKeyOf(std::string_view identifier) {
  return "Devices\\" + std::string(identifier) + "&INST00";
}

/// The key of the clock values, for one card or, without a `device_instance_key`, for the machine.
inline std::string ClockKeyOf(std::string_view device_instance_key) {
  std::string key(kClockTweakKey);
  if (!device_instance_key.empty()) key += "\\" + std::string(device_instance_key);
  return key + "\\Hardware";
}

}  // namespace kestrune::platform
