#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrune::cli {

/// The few of some names that a wrong one is most likely meant for, the likeliest first, as
/// "; nearest: a, b". How much their last parts, behind a dot, differ counts before the rest.
std::string Suggestion(std::string_view wrong, std::vector<std::string_view> names);

}  // namespace kestrune::cli
