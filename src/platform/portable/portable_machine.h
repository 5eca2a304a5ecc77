#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/machine.h"

namespace kestrune::platform::portable {

/// Where a program finds things, with the environment (KESTRUNE_STORE, KESTRUNE_MACHINE,
/// KESTRUNE_PROGRAM_FOLDER) and the defaults taken into account.
struct MachinePlaces {
  std::string machine;
  std::string store;         ///< empty when there is no place for one
  std::string store_folder;  ///< that of the usual stores; empty when there is no place for them
  std::string own_folder;    ///< where the programs themselves stand
  std::vector<std::string> program_folders;
  std::vector<std::string> machine_folders;
};

/// `executable_folder` is where the program itself stands; found out when empty.
MachinePlaces FindPlaces(const MachineOptions& options, const std::string& executable_folder = {});

/// Described machines: their registry is a store, which is filled from the description's registry
/// file when it is new.
class PortableMachines : public MachineSource {
 public:
  explicit PortableMachines(std::string executable_folder = {})
      : executable_folder_(std::move(executable_folder)) {}

  Result<std::unique_ptr<Machine>> Open(const MachineOptions& options) override;
  Result<std::unique_ptr<Inspection>> Inspect(const MachineOptions& options) override;
  bool HasStores() const override { return true; }
  bool HasDescriptions() const override { return true; }
  std::vector<MachineInfo> List(const MachineOptions& options) override;
  Result<MachineInfo> Describe(const std::string& machine, const MachineOptions& options) override;

 private:
  std::string executable_folder_;
};

}  // namespace kestrune::platform::portable
