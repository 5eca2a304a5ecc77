#pragma once

#include <string>

#include "platform/result.h"

namespace kestrune::platform::portable {

/// A file's bytes. The reason of a failure is what the system says of it: "No such file or
/// directory".
Result<std::string> ReadWholeFile(const std::string& path);

}  // namespace kestrune::platform::portable
