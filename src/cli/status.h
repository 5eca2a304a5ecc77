#pragma once

namespace kestrune::cli {

/// What a run of kestrunectl ends with.
enum class Status {
  kDone = 0,
  kNo = 1,          ///< the answer is no: not set, differs, a check failed
  kWrongUsage = 2,  ///< the command line is wrong
  kImpossible = 3,  ///< it could not be done
};

}  // namespace kestrune::cli
