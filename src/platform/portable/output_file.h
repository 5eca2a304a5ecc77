#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/files_api.h"

namespace kestrune::platform::portable {

/// What FilesApi::ReplaceAnyFile promises.
Result<void> ReplaceFile(const std::string& path, std::string_view bytes);

/// What FilesApi::CreateAnyFile promises.
Result<std::unique_ptr<OutputFile>> CreateFile(const std::string& path);

}  // namespace kestrune::platform::portable
