#include "platform/portable/versions.h"

#include "platform/case_fold.h"

namespace kestrune::platform::portable {

std::optional<std::string> DescribedVersions::FileVersionText(std::string_view file_name) {
  const auto found = machine_.file_versions.find(FoldCase(file_name));
  if (found == machine_.file_versions.end()) return std::nullopt;
  return found->second;
}

}  // namespace kestrune::platform::portable
