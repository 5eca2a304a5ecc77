#pragma once

#include "cli/command.h"

namespace kestrune::cli {

/// No steps; the reason why the word behind --clocks is no pair.
platform::Result<std::vector<Step>> CheckClocksWord(const Arguments& arguments);
/// Saves a profile by the manager's boxes and its button. Status 3 when something of it failed.
Status SaveProfile(Run& run, forms::Program& program);
/// Applies a profile as a command line with its path does. Status 3 when it could not be applied.
Status ApplyProfile(Run& run, forms::Program& program);
/// Prints the names of all profiles.
Status ListProfiles(Run& run, forms::Program& program);
/// Prints what applying a profile would change. Status 1 when it would change something.
Status DiffProfile(Run& run);
/// Prints what is wrong with a profile, or all, and what this driver and system make of it. Status
/// 1 when something is wrong.
Status CheckProfiles(Run& run, forms::Program& program);
/// Prints what is wrong with data files: those named, or all profiles and databases.
Status CheckFiles(Run& run);

}  // namespace kestrune::cli
