#pragma once

#include <string_view>

#include "platform/finding.h"

namespace kestrune::monitor {

/// What is wrong with a recording's text.
platform::Findings CheckRecording(std::string_view text);

}  // namespace kestrune::monitor
