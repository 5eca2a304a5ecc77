#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// One sample, shown and recorded, against a fiftieth of what one costs top.
std::vector<Row> CompareSampling(const std::string& folder, int rounds);
/// Memory after twenty minutes of the fastest sampling against that after the first minute. Ends
/// the program when files stay open.
Row CompareLongSampling(const std::string& folder);

}  // namespace kestrune::bench
