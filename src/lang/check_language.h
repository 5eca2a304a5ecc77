#pragma once

#include <string_view>

#include "platform/files_api.h"
#include "platform/finding.h"

namespace kestrune::lang {

/// What is wrong with a language file: its name, and its bytes. Its texts are compared with those
/// of the English file that the program has.
platform::Findings CheckLanguage(std::string_view file_name, std::string_view bytes,
                                 platform::FilesApi& files);

}  // namespace kestrune::lang
