#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "platform/registry_api.h"

namespace kestrune::platform {

/// An empty registry with everything that it stands on.
class RegistryUnderTest {
 public:
  virtual ~RegistryUnderTest() = default;
  virtual RegistryApi& Registry() = 0;
  /// Whether a text may lack its closing NUL. Windows 9x adds a missing one.
  virtual bool HoldsTextsWithoutNul() const { return true; }
  /// Puts there what is to be there before Registry() is used, as long as it is empty.
  virtual void Fill(const std::function<void(RegistryApi&)>& fill) { fill(Registry()); }
};

struct RegistryKind {
  const char* name;
  std::unique_ptr<RegistryUnderTest> (*make)();
};

/// Those of this build's machine.
std::span<const RegistryKind> MachineRegistryKinds();

/// Whether it holds names of any characters. One behind single-byte calls loses those that its code
/// page lacks.
bool MachineHoldsEveryCharacter();

/// Every kind of registry that this build has. The first is the model of all others.
std::vector<RegistryKind> RegistryKinds();

}  // namespace kestrune::platform
