#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// The processor time, user and system, of whole runs: of the start-up in a terminal and of the
/// window's first paint, against programs that do no more than open the same file or show an empty
/// window. They work in that folder; the programs stand beside this one. Ends the program when one
/// of them fails.
std::vector<Row> CompareWholePrograms(const std::string& folder, int rounds);

}  // namespace kestrune::bench
