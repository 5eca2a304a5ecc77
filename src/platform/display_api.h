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

/// What a display shows, or could.
struct DisplayMode {
  int width = 0;  ///< pixels
  int height = 0;
  int depth = 0;    ///< bits a pixel
  int refresh = 0;  ///< Hz

  bool operator==(const DisplayMode&) const = default;
};

/// A change of mode; what is absent isn't part of it.
struct ModeRequest {
  int width = 0;
  int height = 0;
  std::optional<int> depth = {};
  std::optional<int> refresh = {};
  bool is_saved = false;  ///< it is meant to last
};

enum class ModeChange { kDone, kRestartNeeded, kFailed };

/// The display devices (EnumDisplayDevices), and the modes of the first display.
class DisplayApi {
 public:
  virtual ~DisplayApi() = default;

  /// The device with this index, from 0; nothing after the last one.
  virtual std::optional<DisplayDevice> DeviceAt(int index) = 0;
  /// The display's mode with this number, as the system counts them (EnumDisplaySettings); nothing
  /// after the last one. Where MustConfirm says so, number 0 is the mode in force.
  virtual std::optional<DisplayMode> ModeAt(int number) = 0;
  /// Changes the mode (ChangeDisplaySettings); a failure leaves it.
  virtual ModeChange ChangeMode(const ModeRequest& request) = 0;
  /// Whether somebody should be asked if a changed mode can be seen: a real display is.
  virtual bool MustConfirm() = 0;
  /// Restarts the computer (ExitWindowsEx), where the machine is one that can be.
  virtual void RestartComputer() = 0;
};

}  // namespace kestrune::platform
