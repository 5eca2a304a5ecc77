#pragma once

#include <string>
#include <string_view>

#include "platform/files_api.h"
#include "platform/registry_api.h"
#include "platform/result.h"

namespace kestrune::platform {

/// The two forms of registry text.
enum class RegTextForm {
  kVersion4,  ///< REGEDIT4, in the system's code page
  kVersion5,  ///< in UTF-8 here
};

/// Writes a key with all below it as registry text, with CR LF: a key before the keys below it, the
/// default value first, each in order of name. What describes the machine's hardware is left out.
/// The reason of a failure names the key and value that the form can't say.
Result<std::string> WriteRegText(RegistryApi& registry, RegRoot root, std::string_view path,
                                 RegTextForm form, FilesApi& files);

}  // namespace kestrune::platform
