#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/registry_wrapper.h"

namespace kestrune::platform {

/// A value that is another one than before, or is set or isn't where it was the other way round.
struct ChangedValue {
  KeyAddress key;
  std::string name;
  std::optional<StoredValue> before;  ///< nothing: not set
  std::optional<StoredValue> after;
};

/// Remembers what each value was before it was first written or deleted through this. A key that is
/// deleted whole isn't looked into.
class ChangeRecorder : public RegistryWrapper {
 public:
  using RegistryWrapper::RegistryWrapper;

  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override;
  RegStatus DeleteValue(RegHandle key, std::string_view name) override;
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override;

  /// Counts from now on.
  void Forget() { seen_.clear(); }
  /// What has ended up different, in order of key and name without regard to case.
  std::vector<ChangedValue> Changes();

 private:
  struct Seen {
    KeyAddress key;
    std::string name;
    std::optional<StoredValue> before;
  };

  void See(const KeyAddress& key, std::string_view name);
  std::optional<StoredValue> Now(const KeyAddress& key, std::string_view name);

  std::map<std::pair<std::string, std::string>, Seen> seen_;  ///< by key and name, folded
};

}  // namespace kestrune::platform
