#include "platform/reg_text.h"

#include <algorithm>

#include "platform/case_fold.h"

namespace kestrune::platform {

bool IsHardwareDescription(RegRoot root, std::string_view path) {
  constexpr std::string_view kDescription = "HARDWARE\\DESCRIPTION";
  const std::string_view rest = path.substr(std::min(path.size(), kDescription.size()));
  return root == RegRoot::kLocalMachine && (rest.empty() || rest.front() == '\\') &&
         SameWithoutCase(path.substr(0, kDescription.size()), kDescription);
}

}  // namespace kestrune::platform
