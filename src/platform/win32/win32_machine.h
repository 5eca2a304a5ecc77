#pragma once

#include "platform/machine.h"

namespace kestrune::platform::win32 {

/// This computer, which is the only machine there is: it has no store to choose and no
/// descriptions.
class ThisComputer : public MachineSource {
 public:
  Result<std::unique_ptr<Machine>> Open(const MachineOptions& options) override;
  Result<std::unique_ptr<Inspection>> Inspect(const MachineOptions& options) override;
  bool HasStores() const override { return false; }
  bool HasDescriptions() const override { return false; }
  std::vector<MachineInfo> List(const MachineOptions& options) override;
  Result<MachineInfo> Describe(const std::string& machine, const MachineOptions& options) override;
};

}  // namespace kestrune::platform::win32
