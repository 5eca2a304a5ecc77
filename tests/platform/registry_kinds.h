#pragma once

#include <memory>
#include <span>

#include "platform/registry_api.h"

namespace kestrune::platform {

/// An empty registry with everything that it stands on.
class RegistryUnderTest {
 public:
  virtual ~RegistryUnderTest() = default;
  virtual RegistryApi& Registry() = 0;
};

struct RegistryKind {
  const char* name;
  std::unique_ptr<RegistryUnderTest> (*make)();
};

/// Every kind of registry that this build has.
std::span<const RegistryKind> RegistryKinds();

}  // namespace kestrune::platform
