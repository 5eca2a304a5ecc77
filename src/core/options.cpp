#include "core/options.h"

#include "core/outcome.h"

namespace kestrune::core {

void OwnOptions::Write(std::string_view name, const RegInput& value) {
  registry_.WriteAsBinary = 0;
  Ignore(registry_.WriteRegValue(RegRoot::kCurrentUser, kOptionsKey, name, value));
}

}  // namespace kestrune::core
