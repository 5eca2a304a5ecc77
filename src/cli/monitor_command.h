#pragma once

#include "cli/command.h"

namespace kestrune::cli {

/// Refuses numbers that no sampling can have.
platform::Result<std::vector<Step>> CheckMonitorWords(const Arguments& arguments);
Status Monitor(Run& run, forms::Program& program);

}  // namespace kestrune::cli
