#include "core/options.h"

#include "core/outcome.h"

namespace kestrune::core {

std::string VersionText() {
  return std::to_string(kMajorVersion) + "." + std::to_string(kMinorVersion) + "." +
         std::to_string(kRevision);
}

void OwnOptions::Write(std::string_view name, const RegInput& value) {
  registry_.WriteAsBinary = 0;
  Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, kOptionsKey, name, value));
}

}  // namespace kestrune::core
