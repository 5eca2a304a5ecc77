#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"

namespace kestrune::platform::portable {

/// What tells a program from other files.
enum class ProgramNames {
  kExe,         ///< its name ends in ".exe"
  kExecutable,  ///< the user may run it
};

/// The folders and programs in a folder, files that begin with a point left out; nothing when it
/// can't be opened.
std::optional<FolderListing> ListPrograms(const std::string& folder, ProgramNames programs);

/// "/" and what is mounted below /media, /mnt and /run/media, out of a table of mounts as the
/// system writes it.
std::vector<std::string> DrivesAmong(std::string_view mounts);

}  // namespace kestrune::platform::portable
