#pragma once

#include "cli/command.h"

namespace kestrune::cli {

/// No steps; the reason why a word is no category's tag.
platform::Result<std::vector<Step>> CheckTag(const Arguments& arguments);
/// Prints the database file that is chosen for the driver: its base name, then its entries; of one
/// category by its tag, or of all. Status 1 when a file can't be opened.
Status PrintDatabase(Run& run, forms::Program& program);

}  // namespace kestrune::cli
