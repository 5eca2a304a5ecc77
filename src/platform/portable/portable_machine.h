#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/portable/display.h"
#include "platform/portable/driver.h"
#include "platform/portable/files.h"
#include "platform/portable/hardware_keys.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/shell.h"
#include "platform/portable/store.h"
#include "platform/portable/store_registry.h"
#include "platform/portable/versions.h"
#include "platform/result.h"

namespace kestrune::platform::portable {

/// What a command line says about the machine. What is empty comes from the environment
/// (KESTRUNE_STORE, KESTRUNE_MACHINE, KESTRUNE_PROGRAM_FOLDER), else from the defaults.
struct MachineOptions {
  std::string store = {};           ///< a file
  std::string machine = {};         ///< a description's name, or its file
  std::string program_folder = {};  ///< the only folder for program files
  bool dry_run = false;             ///< nothing is kept, and no program is started
  /// Where the program itself stands; found out when empty.
  std::string executable_folder = {};
};

/// Where a program finds things, with the environment and the defaults taken into account.
struct MachinePlaces {
  std::string machine;
  std::string store;  ///< empty when there is no place for one
  std::vector<std::string> program_folders;
  std::vector<std::string> machine_folders;
};

MachinePlaces FindPlaces(const MachineOptions& options);

/// A described machine: it owns what every service of the seam works on, except the dialogs, which
/// a face brings along.
class PortableMachine {
 public:
  /// Loads the description and opens the store, filling a new one from the description's registry
  /// file.
  static Result<std::unique_ptr<PortableMachine>> Open(const MachineOptions& options);
  PortableMachine(const PortableMachine&) = delete;
  PortableMachine& operator=(const PortableMachine&) = delete;

  RegistryApi& Registry() { return registry_; }
  DisplayApi& Display() { return display_; }
  VersionApi& Version() { return version_; }
  ProcessShell& Shell() { return shell_; }
  FolderFiles& Files() { return files_; }

  Store& RegistryStore() { return *store_; }
  const MachineDescription& Description() const { return description_; }
  const MachinePlaces& Places() const { return places_; }
  /// What was odd about the description, a sentence each.
  const std::vector<std::string>& Warnings() const { return warnings_; }
  /// The store's first failure, in one sentence.
  const std::optional<std::string>& FirstFailure() const { return store_->FirstFailure(); }

 private:
  PortableMachine(MachinePlaces places, LoadedDescription loaded, std::unique_ptr<Store> store,
                  bool dry_run);

  MachinePlaces places_;
  MachineDescription description_;
  std::vector<std::string> warnings_;
  std::unique_ptr<Store> store_;
  StoreRegistry store_registry_;
  HardwareKeys registry_;
  DescribedDisplays display_;
  DescribedVersions version_;
  DescribedDriver driver_;
  ProcessShell shell_;
  FolderFiles files_;
};

}  // namespace kestrune::platform::portable
