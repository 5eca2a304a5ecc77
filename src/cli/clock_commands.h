#pragma once

#include "cli/command.h"

/// The overclocking page in one word, for the pair of clocks that "--2d" or "--3d" chooses, else
/// for the one that the page shows.
namespace kestrune::cli {

/// Prints the default and current clocks of the pair.
Status ShowClocks(Run& run, forms::Program& program);
/// Types both clocks and applies them.
Status SetClocks(Run& run, forms::Program& program);
/// Goes back to the driver's default clocks.
Status ResetClocks(Run& run, forms::Program& program);

}  // namespace kestrune::cli
