#pragma once

#include <optional>
#include <vector>

#include "platform/code_page.h"
#include "platform/display_api.h"
#include "platform/registry_api.h"

namespace kestrune::platform::win32 {

/// The card that the key of Windows NT 4's driver names, as a device; nothing when there is no such
/// driver or its card isn't known.
std::optional<DisplayDevice> DriverDevice(RegistryApi& registry);

/// The computer's display devices and modes. Where the system doesn't tell what a device is, as
/// Windows NT 4, the driver's key counts as the only device and the card's name in it tells which.
class SystemDisplays : public DisplayApi {
 public:
  /// In a dry run no display is changed and the computer never restarted. The others must outlive
  /// this.
  SystemDisplays(RegistryApi& registry, CodePages& pages, bool dry_run)
      : registry_(registry), pages_(pages), dry_run_(dry_run) {}

  std::optional<DisplayDevice> DeviceAt(int index) override;
  std::optional<DisplayMode> ModeAt(int number) override;
  ModeChange ChangeMode(const ModeRequest& request) override;
  bool MustConfirm() override { return !dry_run_; }
  void RestartComputer() override;

 private:
  std::vector<DisplayDevice> ListDevices();

  RegistryApi& registry_;
  CodePages& pages_;
  bool dry_run_;
  std::optional<std::vector<DisplayDevice>> devices_;
};

}  // namespace kestrune::platform::win32
