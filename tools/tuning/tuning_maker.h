#pragma once

#include <string>
#include <vector>

#include "platform/files_api.h"

/// Makes the performance wizard's files that are installed below data/DATA/PW: the index, and for
/// each kind of game and each card the factors that its memory and its pipelines allow.
namespace kestrune::tuning {

struct TuningFile {
  std::string name;  ///< "Default/14.dat"
  std::string text;
};

/// Every file, the index first. What a card can do at most is read from its tables in `files`.
std::vector<TuningFile> MakeTuning(platform::FilesApi& files);

}  // namespace kestrune::tuning
