#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace kestrune::platform {

/// What somebody should know of a data file.
struct Finding {
  int line = 0;          ///< from 1; 0 is the file as a whole
  std::string reason;    ///< without a full stop
  bool is_note = false;  ///< no fault, but not what one expects
};

using Findings = std::vector<Finding>;

/// Puts findings into the order of their lines; those of one line keep theirs.
inline void SortByLine(Findings& findings) {
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
}

}  // namespace kestrune::platform
