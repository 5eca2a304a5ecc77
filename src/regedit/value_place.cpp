#include "regedit/value_place.h"

#include "platform/driver_keys.h"
#include "platform/utf8.h"

namespace kestrune::regedit {

namespace {

/// How many characters a file may put before a value's name.
constexpr std::size_t kPrefixSize = 4;

constexpr int kFirstDroppingDriver = 2961;

bool Drop(Drops drops, const detect::VersionState& versions) {
  const bool is_9x = versions.OSFamily == detect::kWindows9x;
  switch (drops) {
    case Drops::kNever:
      return false;
    case Drops::kOnWindows9x:
      return is_9x;
    case Drops::kOnWindows9xOrFrom2961:
      return is_9x || versions.DrvVer >= kFirstDroppingDriver;
    case Drops::kAlways:
      return true;
  }
  return false;
}

}  // namespace

bool SavesDirect3D(const detect::VersionState& versions) {
  return Drop(RowOf(Category::kDirect3D).saved_drops, versions);
}

std::optional<ValuePlace> PlaceOf(Category category, std::string_view name, Purpose purpose,
                                  const detect::VersionState& versions,
                                  const detect::AdapterState& adapter) {
  const CategoryRow& row = RowOf(category);
  const bool is_saved = purpose == Purpose::kSave;
  const std::size_t prefix = platform::OffsetBehind(name, kPrefixSize);
  const bool can_drop = !is_saved || name.size() > prefix;
  if (can_drop && Drop(is_saved ? row.saved_drops : row.drops, versions)) {
    name.remove_prefix(prefix);
  }
  if (name.empty()) return std::nullopt;
  if (row.subkey.empty()) return ValuePlace{std::string(platform::kTweakKey), std::string(name)};
  const bool is_9x = versions.OSFamily == detect::kWindows9x;
  return ValuePlace{adapter.PureKey + std::string(is_9x ? row.subkey : ""), std::string(name)};
}

}  // namespace kestrune::regedit
