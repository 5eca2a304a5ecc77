#pragma once

#include <string>
#include <vector>

#include "side_by_side.h"

namespace kestrune::bench {

/// Runs a program to its end, without its output, and measures its processor time.
Measure ProcessorTime(std::vector<std::string> words);

/// Whole runs of the programs that stand beside this one, on stores of their own in a folder. Each
/// ends this program when one of them fails.
///
/// Memory at its highest, of a terminal's look at a value and of the window. A started program
/// counts what this one had at that moment as its own, so it comes before all other work.
std::vector<Row> CompareMemory(const std::string& folder, int rounds);
/// Processor time, user and system: of the start-up and of a look at a value in a terminal, and of
/// the window's first paint, against what does no more than open the same file or show one word.
/// `many` is how many values the larger store has.
std::vector<Row> CompareTimes(const std::string& folder, int rounds, int many);

}  // namespace kestrune::bench
