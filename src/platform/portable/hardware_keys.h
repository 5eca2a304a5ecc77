#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/portable/machine_description.h"
#include "platform/portable/store.h"
#include "platform/registry_api.h"

namespace kestrune::platform::portable {

/// A registry in which the machine's processors stand under
/// HKEY_LOCAL_MACHINE\HARDWARE\DESCRIPTION\System\CentralProcessor, as the system puts them there
/// at its start. They can be read and never written (kAccessDenied). Everything else goes to the
/// registry behind, which must outlive this.
class HardwareKeys : public RegistryApi {
 public:
  /// `processor` is asked when a key of the processors is first opened.
  HardwareKeys(RegistryApi& registry, std::function<DescribedProcessor()> processor)
      : registry_(registry), ask_processor_(std::move(processor)) {}

  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override;
  RegStatus QueryValue(RegHandle key, std::string_view name, RegType& type, std::size_t& size,
                       std::span<std::byte> data) override;
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  void CloseKey(RegHandle key) override;
  void BeginReads() override { registry_.BeginReads(); }
  void EndReads() override { registry_.EndReads(); }

 private:
  enum class Place { kElsewhere, kAbove, kHere, kNowhere };

  Place PlaceOf(RegRoot root, std::string_view path, bool& has_values);
  void LoadValues();

  RegistryApi& registry_;
  std::function<DescribedProcessor()> ask_processor_;
  std::optional<int> count_;
  std::vector<StoredValue> values_;  ///< of every processor alike
};

}  // namespace kestrune::platform::portable
