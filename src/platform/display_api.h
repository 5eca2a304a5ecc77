#pragma once

#include <optional>
#include <string>

namespace kestrune::platform {

/// One display device as EnumDisplayDevices reports it.
struct DisplayDevice {
  std::string name;         ///< such as \\.\DISPLAY1
  std::string description;  ///< the card's marketing name
  unsigned state = 0;       ///< state flags
  std::string hardware_id;  ///< PCI\VEN_vvvv&DEV_dddd&SUBSYS_ssssssss&REV_rr
  std::string driver_key;   ///< registry path of the driver, such as \Registry\Machine\System\...
};

/// The display devices (EnumDisplayDevices).
class DisplayApi {
 public:
  virtual ~DisplayApi() = default;

  /// The device with this index, from 0; nothing after the last one.
  virtual std::optional<DisplayDevice> DeviceAt(int index) = 0;
};

}  // namespace kestrune::platform
