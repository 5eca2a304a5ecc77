#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/registry_api.h"

namespace kestrune::platform {

/// What a machine remembers for as long as its registry lives, by names of its own. It stands
/// outside every root, so nothing lists it; a group of changes holds and takes back what is stored
/// in it as it does values.
class MachineMemory {
 public:
  virtual ~MachineMemory() = default;

  virtual std::optional<std::string> MachineState(std::string_view name) = 0;
  virtual RegStatus SetMachineState(std::string_view name, std::string_view text) = 0;
};

}  // namespace kestrune::platform
