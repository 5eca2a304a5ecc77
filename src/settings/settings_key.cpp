#include "settings/settings_key.h"

#include "core/outcome.h"

namespace kestrune::settings {

namespace {
constexpr std::string_view kDebugKey = "SOFTWARE\\NVIDIA Corporation\\Global\\OpenGL\\Debug";
}

SettingsKey::Address SettingsKey::AddressOf(std::string_view name, Place place) const {
  if (place == Place::kDebugKey) return {std::string(kDebugKey), std::string(name), 0};
  if (place == Place::kDriverKey) {
    return {adapter_.PureKey, std::string(name), StoredAsBinary()};
  }
  if (versions_.OSFamily == detect::kWindows9x) {
    return {adapter_.PureKey + std::string(subkey_), std::string(name), 0};
  }
  return {adapter_.PureKey, std::string(prefix_) + std::string(name), 1};
}

std::optional<std::int32_t> SettingsKey::Read(std::string_view name, Place place) const {
  const Address address = AddressOf(name, place);
  return registry_.ReadRegValue(core::RegRoot::kLocalMachine, address.key, address.name).Number();
}

void SettingsKey::Apply(const Change& change) const {
  const Address address = AddressOf(change.name, change.place);
  SetBinary(address.binary);
  if (change.number) {
    core::Ignore(registry_.WriteRegValue(core::RegRoot::kLocalMachine, address.key, address.name,
                                         *change.number));
  } else {
    registry_.DeleteRegValue(core::RegRoot::kLocalMachine, address.key, address.name);
  }
  SetBinary(0);
}

}  // namespace kestrune::settings
