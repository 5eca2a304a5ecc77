#pragma once

#include "platform/portable/machine_description.h"
#include "platform/version_api.h"

namespace kestrune::platform::portable {

/// The versions that a description gives. It must outlive this.
class DescribedVersions : public VersionApi {
 public:
  explicit DescribedVersions(const MachineDescription& machine) : machine_(machine) {}

  OsVersion SystemVersion() override { return machine_.os; }
  std::optional<std::string> FileVersionText(std::string_view file_name) override;

 private:
  const MachineDescription& machine_;
};

}  // namespace kestrune::platform::portable
