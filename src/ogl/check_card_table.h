#pragma once

#include <string_view>

#include "platform/finding.h"

namespace kestrune::ogl {

/// What is wrong with a table of cards: its name ("mt"), and its text.
platform::Findings CheckCardTable(std::string_view table, std::string_view text);

}  // namespace kestrune::ogl
