#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/portable/machine_description.h"
#include "platform/registry_wrapper.h"

namespace kestrune::platform::portable {

/// A registry in which the machine's processors stand under
/// HKEY_LOCAL_MACHINE\HARDWARE\DESCRIPTION\System\CentralProcessor, as the system puts them there
/// at its start. They can be read and listed. Nothing from DESCRIPTION on is ever written or
/// deleted (kAccessDenied).
class HardwareKeys : public RegistryWrapper {
 public:
  /// `processor` is asked when a key of the processors is first opened or listed.
  HardwareKeys(RegistryApi& inner, std::function<DescribedProcessor()> processor)
      : RegistryWrapper(inner), ask_processor_(std::move(processor)) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;
  RegStatus DeleteKey(RegRoot root, std::string_view path) override;
  RegStatus ListKeys(RegHandle key, std::vector<std::string>& names) override;
  RegStatus ListValues(RegHandle key, std::vector<StoredValue>& values) override;

 private:
  enum class Place { kElsewhere, kAbove, kProcessors, kProcessor, kNowhere };

  Place PlaceOf(RegRoot root, std::string_view path);
  /// Whether it is a key that no registry behind needs to have.
  bool IsOwn(RegHandle key);
  /// Whether nothing in it is changed.
  bool IsHeld(RegHandle key);
  std::vector<StoredValue> OwnValues(RegHandle key);
  std::vector<std::string> OwnKeys(const KeyAddress& address);
  void LoadValues();

  std::function<DescribedProcessor()> ask_processor_;  ///< null once it was asked
  std::vector<std::vector<StoredValue>> processors_;   ///< the values of each, sorted by name
};

}  // namespace kestrune::platform::portable
