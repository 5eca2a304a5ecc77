#pragma once

#include <optional>
#include <string>

namespace kestrune::face {

/// What a window face takes as the path of a speed profile: its whole command line without the
/// program's own name, joined by blanks. Empty without arguments.
std::string ProfilePath(int argument_count, const char* const* arguments);

/// What is to be printed instead of showing a window: for `--help` and `--version`, which mean that
/// only where they stand alone.
std::optional<std::string> PrintedAnswer(int argument_count, const char* const* arguments);

}  // namespace kestrune::face
