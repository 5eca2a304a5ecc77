#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/display_api.h"
#include "platform/portable/machine_description.h"

namespace kestrune::platform::portable {

/// The display devices on the bus of the running machine, in the order of their addresses.
/// `devices_folder` is /sys/bus/pci/devices, or what looks like it.
std::vector<DisplayDevice> ReadPciDisplayDevices(const std::string& devices_folder);

/// The display devices and modes that a description gives, else those of the running machine,
/// looked for when asked. The computer is never restarted. The description must outlive this.
class DescribedDisplays : public DisplayApi {
 public:
  /// In a dry run no display is changed, and every listed mode counts as one that it takes.
  DescribedDisplays(const MachineDescription& machine, bool dry_run)
      : machine_(machine), dry_run_(dry_run) {}

  std::optional<DisplayDevice> DeviceAt(int index) override;
  std::optional<DisplayMode> ModeAt(int number) override;
  ModeChange ChangeMode(const ModeRequest& request) override;
  bool MustConfirm() override { return !machine_.display.modes && !dry_run_; }
  void RestartComputer() override {}

 private:
  const std::vector<DisplayMode>& Modes();

  const MachineDescription& machine_;
  bool dry_run_;
  std::vector<DisplayMode> host_modes_;
  std::optional<std::vector<DisplayDevice>> host_;
};

}  // namespace kestrune::platform::portable
