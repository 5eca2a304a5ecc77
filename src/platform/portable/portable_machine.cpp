#include "platform/portable/portable_machine.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/code_page.h"
#include "platform/driver.h"
#include "platform/driver_keys.h"
#include "platform/portable/display.h"
#include "platform/portable/files.h"
#include "platform/portable/hardware_keys.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/processor.h"
#include "platform/portable/shell.h"
#include "platform/portable/store.h"
#include "platform/portable/store_registry.h"
#include "platform/portable/system.h"
#include "platform/portable/user_folders.h"
#include "platform/portable/versions.h"
#include "platform/portable/whole_file.h"
#include "platform/reg_file.h"
#include "platform/release_number.h"
#include "platform/unwritten_files.h"

namespace kestrune::platform::portable {
namespace {

constexpr const char* kDefaultMachine = "winxp-geforce6800";
/// The description that leaves everything to the computer that the program runs on.
constexpr const char* kOwnComputer = "host";

std::string FirstOf(const std::string& given, const char* variable, const std::string& otherwise) {
  if (!given.empty()) return given;
  const std::string value = Environment(variable);
  return value.empty() ? otherwise : value;
}

bool IsFolder(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

std::string InstalledFolder(const std::string& executable_folder) {
  if (IsFolder(executable_folder + "/DATA")) return executable_folder;
  return std::filesystem::path(executable_folder + "/../share/kestrune").lexically_normal();
}

/// The program below the program folder that describes the graphics.
constexpr const char* kReportProgram = "\\data\\d3dinfo.exe";

/// Gives a new store what the machine's registry holds from the start.
Result<void> FillStore(const MachineDescription& machine, Store& store) {
  const std::string file = RegistryFileOf(machine);
  if (file.empty()) return {};
  FolderFiles files({}, machine.code_page);
  const auto bytes = ReadWholeFile(file, kLongestRegFile);
  if (!bytes.Ok()) {
    return Fail("The registry file " + file + " can't be read: " + bytes.Reason().reason + ".");
  }
  StoreRegistry registry(store);
  const auto applied = ImportRegFile(bytes.Value(), file, files, registry);
  if (applied) return {};
  return Fail(store.FirstFailure().value_or(applied.Reason()));
}

/// The card is the last device that has NVIDIA's number.
DescribedCard CardOf(const MachineDescription& machine) {
  DescribedCard card;
  if (machine.display_devices) {
    for (const DisplayDevice& device : *machine.display_devices) {
      if (device.hardware_id.find(kVendorMark) == std::string::npos) continue;
      card.hardware_id = device.hardware_id;
    }
  }
  const auto version = DescribedVersions(machine).FileVersionText("NvCpl.dll");
  card.driver = version ? ReleaseNumber(*version).value_or(0) : 0;
  card.is_9x = machine.os.platform == kPlatform9x;
  card.clocks = machine.clocks;
  return card;
}

DescribedProcessor ProcessorOf(const MachineDescription& machine) {
  const DescribedProcessor& described = machine.processor;
  const bool is_whole = described.count && described.mhz && described.names &&
                        described.identifier && described.vendor;
  if (is_whole) return described;
  const auto cpu_info = ReadWholeFile("/proc/cpuinfo");
  return cpu_info.Ok() ? Completed(described, ReadProcessors(cpu_info.Value())) : described;
}

class PortableMachine : public Machine {
 public:
  PortableMachine(const MachinePlaces& places, LoadedDescription loaded,
                  std::unique_ptr<Store> store, bool dry_run)
      : description_(std::move(loaded.description)),
        warnings_(std::move(loaded.warnings)),
        store_(std::move(store)),
        store_registry_(*store_),
        registry_(store_registry_, [this] { return Processor(); }),
        display_(description_, dry_run),
        version_(description_),
        system_(description_, [this] { return Processor(); }),
        driver_(CardOf(description_), store_registry_, *store_),
        shell_(dry_run),
        files_(places.program_folders, description_.code_page, description_.programs) {
    shell_.SetDriverStandIn(&driver_);
    shell_.SetHelper(files_.ProgramFolder() + kReportProgram,
                     {places.own_folder + "/d3dinfo", places.program_folders.front()});
    if (dry_run) unwritten_.emplace(files_);
  }

  Services ServicesFor(DialogApi& dialog) override {
    FilesApi& files = unwritten_ ? static_cast<FilesApi&>(*unwritten_) : files_;
    return {registry_, display_, version_, system_, shell_, files, dialog};
  }
  std::optional<std::string> FirstFailure() const override { return store_->FirstFailure(); }
  std::string Title() const override {
    const bool is_own = std::filesystem::path(description_.file).stem() == kOwnComputer;
    return is_own ? "" : description_.title;
  }
  const std::vector<std::string>& Warnings() const override { return warnings_; }

 private:
  const DescribedProcessor& Processor() {
    if (!processor_) processor_ = ProcessorOf(description_);
    return *processor_;
  }

  MachineDescription description_;
  std::optional<DescribedProcessor> processor_;  ///< found when first asked for
  std::vector<std::string> warnings_;
  std::unique_ptr<Store> store_;
  StoreRegistry store_registry_;
  HardwareKeys registry_;
  DescribedDisplays display_;
  DescribedVersions version_;
  DescribedSystem system_;
  DescribedDriver driver_;
  ProcessShell shell_;
  FolderFiles files_;
  std::optional<UnwrittenFiles> unwritten_;  ///< of a dry run
};

}  // namespace

MachinePlaces FindPlaces(const MachineOptions& options, const std::string& executable_folder) {
  MachinePlaces places;
  const std::string home = DataHome();
  const std::string user = home.empty() ? "" : home + "/kestrune";
  places.own_folder = executable_folder.empty()
                          ? std::filesystem::path(ExecutablePath()).parent_path().string()
                          : executable_folder;
  const std::string installed = InstalledFolder(places.own_folder);
  const std::string given = FirstOf(options.program_folder, "KESTRUNE_PROGRAM_FOLDER", "");
  if (!given.empty()) {
    places.program_folders = {given};
  } else if (user.empty()) {
    places.program_folders = {installed};
  } else {
    places.program_folders = {user, installed};
  }
  if (!given.empty() && IsFolder(given + "/machines")) {
    places.machine_folders = {given + "/machines"};
  } else {
    if (!user.empty()) places.machine_folders.push_back(user + "/machines");
    places.machine_folders.push_back(installed + "/machines");
  }
  places.machine = FirstOf(options.machine, "KESTRUNE_MACHINE", kDefaultMachine);
  const std::filesystem::path machine(places.machine);
  const std::string name = machine.extension() == ".toml" ? machine.stem() : machine.filename();
  places.store_folder = user;
  const std::string usual = user.empty() ? "" : user + "/" + name + ".store";
  places.store = FirstOf(options.store, "KESTRUNE_STORE", usual);
  return places;
}

Result<std::unique_ptr<Machine>> PortableMachines::Open(const MachineOptions& options) {
  const MachinePlaces places = FindPlaces(options, executable_folder_);
  const auto file = FindMachineDescription(places.machine, places.machine_folders);
  if (!file.Ok()) return Fail(file.Reason());
  auto loaded = LoadMachineDescription(file.Value());
  if (!loaded.Ok()) return Fail(loaded.Reason());
  MachineDescription& machine = loaded.Value().description;
  if (!CodePages::IsKnown(machine.code_page)) {
    loaded.Value().warnings.push_back(machine.file + ": code page " +
                                      std::to_string(machine.code_page) +
                                      " isn't known; 1252 is used.");
  }
  if (places.store.empty()) {
    return Fail("There is no place for the store: neither XDG_DATA_HOME nor HOME is set.");
  }
  StoreOptions store_options;
  store_options.path = places.store;
  store_options.dry_run = options.dry_run;
  store_options.fill = [&machine](Store& store) { return FillStore(machine, store); };
  auto store = Store::Open(store_options);
  if (!store.Ok()) return Fail(store.Reason());
  return std::unique_ptr<Machine>(std::make_unique<PortableMachine>(
      places, std::move(loaded).Value(), std::move(store).Value(), options.dry_run));
}

std::vector<MachineInfo> PortableMachines::List(const MachineOptions& options) {
  return ListMachineDescriptions(FindPlaces(options, executable_folder_).machine_folders);
}

Result<MachineInfo> PortableMachines::Describe(const std::string& machine,
                                               const MachineOptions& options) {
  const MachinePlaces places = FindPlaces(options, executable_folder_);
  const auto file = FindMachineDescription(machine, places.machine_folders);
  if (!file.Ok()) return Fail(file.Reason());
  auto loaded = LoadMachineDescription(file.Value());
  if (!loaded.Ok()) return Fail(loaded.Reason());
  return MachineInfo{machine, loaded.Value().description.title, file.Value(),
                     std::move(loaded.Value().warnings)};
}

}  // namespace kestrune::platform::portable
