#pragma once

#include <string_view>

#include "platform/files_api.h"
#include "platform/finding.h"

namespace kestrune::platform {

/// What keeps registry text from being imported: its first fault.
Findings CheckRegFile(std::string_view bytes, FilesApi& files);

}  // namespace kestrune::platform
