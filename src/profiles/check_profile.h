#pragma once

#include <string_view>

#include "detect/versions.h"
#include "platform/files_api.h"
#include "platform/finding.h"

namespace kestrune::profiles {

/// What is wrong with a profile's text. With the machine's versions also, as notes, what of it this
/// driver and system take in a way that isn't to be expected; null without a machine.
platform::Findings CheckProfile(std::string_view text, platform::FilesApi& files,
                                const detect::VersionState* versions);

}  // namespace kestrune::profiles
