#pragma once

#include <string>
#include <string_view>

#include "platform/result.h"

namespace kestrune::cli {

/// Writes a file that takes the place of the old one, with its rights, only when it is whole; a
/// link stays and what it leads to is replaced. What is no ordinary file, such as a pipe, is
/// written as it is. The reason of a failure is what the system says of it; the old file is then
/// as it was.
platform::Result<void> ReplaceFile(const std::string& path, std::string_view bytes);

}  // namespace kestrune::cli
