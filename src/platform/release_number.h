#pragma once

#include <optional>
#include <string_view>

namespace kestrune::platform {

/// The release number at the end of a file's version text, blanks around it left out: its last
/// four characters, or the last three when the fourth from the end is a point. Nothing when they
/// are no number.
std::optional<int> ReleaseNumber(std::string_view version_text);

}  // namespace kestrune::platform
