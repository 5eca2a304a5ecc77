#pragma once

#include <string>

#include "cli/script.h"

/// The overclocking page in one word.
namespace kestrune::cli {

/// Prints the default and current clocks of a pair.
Status ShowClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                  bool is_3d);
/// Types both clocks and applies them.
Status SetClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                 bool is_3d, const std::string& core, const std::string& memory);
/// Goes back to the driver's default clocks.
Status ResetClocks(forms::Program& program, const GlobalOptions& options, const Streams& streams,
                   bool is_3d);

}  // namespace kestrune::cli
