#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// What applying a speed profile costs beside the transaction that stores its values.
std::vector<Row> CompareProfiles(const std::string& folder, int rounds);

}  // namespace kestrune::bench
