#pragma once

#include "cli/command.h"

/// The machines that there are.
namespace kestrune::cli {

Status Machines(Run& run);

}  // namespace kestrune::cli
