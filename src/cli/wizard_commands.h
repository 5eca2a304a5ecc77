#pragma once

#include "cli/command.h"

/// The performance wizard in one word.
namespace kestrune::cli {

/// Refuses what is no number.
platform::Result<std::vector<Step>> CheckWizardWords(const Arguments& arguments);
/// Optimises once for an entry and the sliders' positions, and prints what the preview lists.
Status RunWizard(Run& run, forms::Program& program);

}  // namespace kestrune::cli
