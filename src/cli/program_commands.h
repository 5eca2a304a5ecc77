#pragma once

#include "cli/command.h"

/// What the started program knows, as lists.
namespace kestrune::cli {

Status Pages(Run& run, forms::Program& program);
Status State(Run& run, forms::Program& program);
Status Languages(Run& run, forms::Program& program);
/// The display modes, as the page lists them.
Status Modes(Run& run, forms::Program& program);
/// Those that the page lists now, with the details that it has of them.
Status Processes(Run& run, forms::Program& program);

}  // namespace kestrune::cli
