#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/registry_api.h"

/// How keys are named: a root and the path below it.
namespace kestrune::platform {

/// "HKLM", "HKCU" or "HKCR"; "?" for any other number.
std::string_view RootName(RegRoot root);
/// "HKEY_LOCAL_MACHINE" and so on; empty for any other number.
std::string_view LongRootName(RegRoot root);
/// The root with that long name, in any case.
std::optional<RegRoot> RootNamed(std::string_view long_name);

/// A key below its root.
struct KeyAddress {
  RegRoot root{};
  std::string path;

  bool operator==(const KeyAddress&) const = default;
};

/// Reads a key: a root's short or long name in any case, then a backslash and the path. A root
/// alone is its empty path. Nothing when the root isn't known.
std::optional<KeyAddress> ParseKey(std::string_view text);
/// A path without the one backslash that may end it.
std::string_view WithoutLastBackslash(std::string_view path);
/// The long name of a key's root and the key's path in capitals, by which keys are found and
/// sorted; `path` loses the one backslash that may end it. kInvalidHandle for a root that isn't
/// known, kBadPath for a path with a level that has no name.
RegStatus FoldKeyPath(RegRoot root, std::string_view& path, std::string& folded);
/// "HKLM\Software\..."
std::string KeyText(RegRoot root, std::string_view path);

}  // namespace kestrune::platform
