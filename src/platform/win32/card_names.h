#pragma once

#include <optional>
#include <string_view>

namespace kestrune::platform::win32 {

/// The PCI device identifier of a card by the name that its driver's installer gave it, such as
/// "NVIDIA RIVA TNT2/TNT2 Pro"; where several cards share a name, that of the ordinary one.
std::optional<unsigned> DeviceNamed(std::string_view name);

}  // namespace kestrune::platform::win32
