#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/finding.h"

namespace kestrune::wizard {

/// The file names in an entry's folder; nothing where there is no such folder.
using EntryFiles = std::function<std::vector<std::string>(const std::string& entry)>;

/// What is wrong with the index of the wizard's entries, each of which has to have a file for each
/// of the cards.
platform::Findings CheckIndex(std::string_view text, const std::set<std::string>& cards,
                              const EntryFiles& files_of);
/// What is wrong with a tuning file's text.
platform::Findings CheckTuning(std::string_view text);

}  // namespace kestrune::wizard
