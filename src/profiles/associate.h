#pragma once

#include <string_view>

#include "platform/registry_api.h"

namespace kestrune::profiles {

/// Registers the speed profiles' file type with the shell, so that opening one starts the program
/// in that folder with the file's path. What stands there already is left alone; what doesn't is
/// changed in one group, or not at all.
void RegisterFileType(platform::RegistryApi& registry, std::string_view program_folder);

}  // namespace kestrune::profiles
