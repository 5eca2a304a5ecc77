#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// A refresh of the list of processes among so many, against the opening, reading and closing of as
/// many files and against the program ps. Ends the program when something can't be done.
std::vector<Row> CompareProcesses(const std::string& folder, int rounds, int processes);

}  // namespace kestrune::bench
