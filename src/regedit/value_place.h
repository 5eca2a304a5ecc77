#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "detect/adapter.h"
#include "detect/versions.h"
#include "regedit/database.h"

/// Where the values that a database names stand in the registry, below HKEY_LOCAL_MACHINE.
namespace kestrune::regedit {

struct ValuePlace {
  std::string key;
  std::string name;
};

/// What the place is asked for: the two differ in the beginnings that they drop.
enum class Purpose { kEdit, kSave };

/// Whether a profile of this driver's values finds the Direct3D values of a database.
bool SavesDirect3D(const detect::VersionState& versions);

/// The place of an entry's value on this system. Nothing for a name of which nothing is left when
/// its file's own beginning is dropped.
std::optional<ValuePlace> PlaceOf(Category category, std::string_view name, Purpose purpose,
                                  const detect::VersionState& versions,
                                  const detect::AdapterState& adapter);

}  // namespace kestrune::regedit
