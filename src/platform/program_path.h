#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrune::platform {

/// The names that a path in the program folder leads through; nothing for one that leaves it.
std::optional<std::vector<std::string_view>> ProgramPathParts(std::string_view path);

/// The same path as it is told to people: with slashes, and none in front.
std::string ProgramPathText(std::string_view path);

/// What a whole path has behind the text of the program folder; nothing for one that leads
/// elsewhere.
std::optional<std::string_view> InProgramFolder(std::string_view path, std::string_view folder);

}  // namespace kestrune::platform
