#pragma once

#include <string>
#include <vector>

#include "cli/session.h"

namespace kestrune::cli {

/// Runs kestrunectl with these arguments (without the program's own name) and gives its exit
/// status.
int RunCommandLine(const std::vector<std::string>& arguments, platform::MachineSource& machines,
                   const Streams& streams);

}  // namespace kestrune::cli
