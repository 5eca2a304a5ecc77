#pragma once

#include <string_view>

#include "lang/language.h"
#include "platform/files_api.h"
#include "platform/finding.h"

namespace kestrune::lang {

/// The texts of the English file that the program has; empty ones where it has none.
LangTable EnglishTexts(platform::FilesApi& files);
/// What is wrong with a language file: its name, and its bytes.
platform::Findings CheckLanguage(std::string_view file_name, std::string_view bytes,
                                 const LangTable& english, platform::FilesApi& files);

}  // namespace kestrune::lang
