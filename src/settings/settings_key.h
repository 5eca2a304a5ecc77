#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/registry.h"
#include "detect/adapter.h"
#include "settings/setting.h"

namespace kestrune::settings {

/// The driver's values of one interface, where this system keeps them: as REG_DWORD in a subkey
/// of the driver's key on Windows 9x, as 4-byte REG_BINARY in the key itself on the NT family.
class SettingsKey {
 public:
  /// `subkey` is "\NVidia\Direct3D" or "\NVidia\OpenGL"; `prefix` stands before the names on the
  /// NT family. The key follows the adapter's state.
  SettingsKey(core::basRegistry& registry, const detect::VersionState& versions,
              const detect::AdapterState& adapter, std::string_view subkey, std::string_view prefix)
      : registry_(registry),
        versions_(versions),
        adapter_(adapter),
        subkey_(subkey),
        prefix_(prefix) {}

  /// The number stored under a name; nothing when it is not set or no number.
  std::optional<std::int32_t> Read(std::string_view name, Place place) const;
  /// Stores or deletes. WriteAsBinary is set for the place and cleared again.
  void Apply(const Change& change) const;
  /// Sets WriteAsBinary: 1 when the next writes are to store REG_BINARY.
  void SetBinary(int binary) const { registry_.WriteAsBinary = binary; }
  /// The state of WriteAsBinary that suits this system's values.
  int StoredAsBinary() const { return versions_.OSFamily == detect::kWindows9x ? 0 : 1; }
  platform::ReadScope Reading() const { return registry_.Reading(); }

 private:
  struct Address {
    std::string key;
    std::string name;
    int binary;
  };
  Address AddressOf(std::string_view name, Place place) const;

  core::basRegistry& registry_;
  const detect::VersionState& versions_;
  const detect::AdapterState& adapter_;
  std::string_view subkey_;
  std::string_view prefix_;
};

}  // namespace kestrune::settings
