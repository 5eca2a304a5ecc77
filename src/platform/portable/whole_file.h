#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_limits.h"
#include "platform/files_api.h"
#include "platform/result.h"

namespace kestrune::platform::portable {

enum class PipesToo { kNo, kYes };

/// What an error number of the system says of a file at that path.
FileFailure FailureOf(int error, const std::string& path);

/// The bytes of an ordinary file, or of a pipe where that is allowed. The reason of a failure is
/// what the system says of it ("No such file or directory"), that it is no ordinary file, or its
/// size when it is longer than `longest`.
Result<std::string, FileFailure> ReadWholeFile(const std::string& path,
                                               std::size_t longest = kLongestDataFile,
                                               PipesToo pipes = PipesToo::kNo);

/// Stores bytes as a new file in a folder that is there. Once it is whole on the disk it takes the
/// place of the files with the names given, one after the other, and keeps the last name. A failure
/// leaves them as they were, and nothing else behind.
Result<void, FileFailure> ReplaceFiles(const std::string& folder,
                                       const std::vector<std::string>& names,
                                       std::string_view bytes);

/// Adds bytes to an ordinary file in one write, and takes back what a full disk left of them.
Result<void, FileFailure> AppendToFile(const std::string& path, std::string_view bytes);

}  // namespace kestrune::platform::portable
