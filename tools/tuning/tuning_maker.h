#pragma once

#include <string>
#include <vector>

/// Makes the performance wizard's files that are installed below data/DATA/PW: the index, and for
/// each kind of game and each card of tools/cards the factors that its memory and its pipelines
/// allow.
namespace kestrune::tuning {

struct TuningFile {
  std::string name;  ///< "Default/14.dat"
  std::string text;
};

/// Every file, the index first.
std::vector<TuningFile> MakeTuning();

}  // namespace kestrune::tuning
