#pragma once

#include <string_view>

#include "core/finding.h"

namespace kestrune::regedit {

/// What is wrong with a database file: its base name, and its text.
core::Findings CheckDatabase(std::string_view base_name, std::string_view text);

}  // namespace kestrune::regedit
