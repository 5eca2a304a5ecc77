#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// What checking every shipped file costs beside reading their bytes.
std::vector<Row> CompareCheck(const std::string& folder, int rounds);

}  // namespace kestrune::bench
