#include "regedit/value_place.h"

#include <algorithm>

#include "platform/driver_keys.h"

namespace kestrune::regedit {

namespace {

/// How many characters a file may put before a value's name.
constexpr std::size_t kPrefixSize = 4;

}  // namespace

std::optional<ValuePlace> PlaceOf(Category category, std::string_view name,
                                  const detect::VersionState& versions,
                                  const detect::AdapterState& adapter) {
  const CategoryRow& row = RowOf(category);
  const bool is_9x = versions.OSFamily == detect::kWindows9x;
  if (row.drops == Drops::kAlways || (row.drops == Drops::kOnWindows9x && is_9x)) {
    name.remove_prefix(std::min(name.size(), kPrefixSize));
  }
  if (name.empty()) return std::nullopt;
  if (row.subkey.empty()) return ValuePlace{std::string(platform::kTweakKey), std::string(name)};
  return ValuePlace{adapter.PureKey + std::string(is_9x ? row.subkey : ""), std::string(name)};
}

}  // namespace kestrune::regedit
