#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// Registry operations against the prepared statements that they need, on a store of their own in
/// that folder. Ends the program when something can't be done.
std::vector<Row> CompareRegistry(const std::string& folder, int rounds);
/// The import of registry text against the one transaction that it comes to.
std::vector<Row> CompareImport(const std::string& folder, int rounds);

}  // namespace kestrune::bench
