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

/// The display devices that a description gives, else those of the running machine, looked for
/// when first asked. The description must outlive this.
class DescribedDisplays : public DisplayApi {
 public:
  explicit DescribedDisplays(const MachineDescription& machine) : machine_(machine) {}

  std::optional<DisplayDevice> DeviceAt(int index) override;

 private:
  const MachineDescription& machine_;
  std::optional<std::vector<DisplayDevice>> host_;
};

}  // namespace kestrune::platform::portable
