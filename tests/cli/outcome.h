#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"

namespace kestrune::cli {

inline constexpr const char* kMode = "direct3d.antialiasing.antialiasing-mode";
inline constexpr const char* kLimit = "direct3d.misc.prerender-limit";

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

/// Runs kestrunectl in this process.
inline Outcome RunOn(platform::MachineSource& machines, const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunCommandLine(arguments, machines, {out, err});
  return {status, out.str(), err.str()};
}

}  // namespace kestrune::cli
