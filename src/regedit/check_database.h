#pragma once

#include <string_view>

#include "platform/finding.h"

namespace kestrune::regedit {

/// What is wrong with a database file: its base name, and its text.
platform::Findings CheckDatabase(std::string_view base_name, std::string_view text);

}  // namespace kestrune::regedit
