#include "platform/win32/win32_machine.h"

#include <windows.h>

#include <cstdlib>
#include <utility>

#include "platform/memory_registry.h"
#include "platform/undoing_registry.h"
#include "platform/unwritten_files.h"
#include "platform/win32/display.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/files.h"
#include "platform/win32/inspection.h"
#include "platform/win32/library.h"
#include "platform/win32/registry.h"
#include "platform/win32/shell.h"
#include "platform/win32/system.h"
#include "platform/win32/text.h"
#include "platform/win32/versions.h"

namespace kestrune::platform::win32 {

namespace {

std::string FolderOf(const std::string& path) { return path.substr(0, path.find_last_of('\\')); }

/// The folder of program files, and the one where they are written when that refuses it.
struct Folders {
  std::string program;
  std::string own;
};

Folders FindFolders(const MachineOptions& options) {
  std::string given = options.program_folder;
  if (given.empty()) {
    char value[MAX_PATH];
    const DWORD length = GetEnvironmentVariableA("KESTRUNE_PROGRAM_FOLDER", value, sizeof value);
    if (length < sizeof value) {
      given = CodePages(SystemCodePage()).Decode({value, length});
    }
  }
  if (!given.empty()) {
    std::string folder = WholePathOf(given);
    if (folder.ends_with('\\')) folder.pop_back();
    return {std::move(folder), ""};
  }
  const std::string data = UserDataFolder();
  return {FolderOf(ProgramFile()), data.empty() ? "" : data + "\\Kestrune"};
}

/// Whether this is a program of 32 bits under a system of 64, which shows it another registry and
/// other system files than the driver's.
bool IsUnderWiderSystem() {
  using IsWow = BOOL WINAPI(HANDLE, BOOL*);
  const Library kernel("kernel32.dll");
  BOOL is_wow = FALSE;
  auto* const is_wow64 = kernel.Find<IsWow>("IsWow64Process");
  return is_wow64 != nullptr && is_wow64(GetCurrentProcess(), &is_wow) && is_wow;
}

class Computer : public Machine {
 public:
  Computer(Folders folders, bool dry_run)
      : pages_(SystemCodePage()),
        system_registry_(pages_),
        registry_(system_registry_),
        display_(system_registry_, pages_, dry_run),
        version_(pages_),
        system_(pages_),
        shell_(pages_, dry_run),
        files_(std::move(folders.program), std::move(folders.own), pages_) {
    if (!dry_run) return;
    overlay_.emplace(system_registry_);
    unwritten_.emplace(files_);
  }

  Services ServicesFor(DialogApi& dialog) override {
    RegistryApi& registry = overlay_ ? static_cast<RegistryApi&>(*overlay_) : registry_;
    FilesApi& files = unwritten_ ? static_cast<FilesApi&>(*unwritten_) : files_;
    return {registry, display_, version_, system_, shell_, files, dialog};
  }
  std::optional<std::string> FirstFailure() const override {
    return system_registry_.FirstFailure();
  }
  std::string Title() const override { return {}; }
  const std::vector<std::string>& Warnings() const override { return warnings_; }

 private:
  CodePages pages_;
  std::vector<std::string> warnings_;
  SystemRegistry system_registry_;
  UndoingRegistry registry_;
  SystemDisplays display_;
  SystemVersions version_;
  SystemState system_;
  SystemShell shell_;
  ProgramFiles files_;
  std::optional<OverlayRegistry> overlay_;   ///< of a dry run
  std::optional<UnwrittenFiles> unwritten_;  ///< of a dry run
};

}  // namespace

Result<std::unique_ptr<Machine>> ThisComputer::Open(const MachineOptions& options) {
  if (IsUnderWiderSystem()) {
    return Fail(
        "This program is the one for 32-bit Windows; a 64-bit Windows needs the one for 64 bits.");
  }
  return std::unique_ptr<Machine>(
      std::make_unique<Computer>(FindFolders(options), options.dry_run));
}

Result<std::unique_ptr<Inspection>> ThisComputer::Inspect(const MachineOptions& options) {
  const Folders folders = FindFolders(options);
  return std::unique_ptr<Inspection>(
      std::make_unique<ProgramInspection>(folders.program, folders.own));
}

std::vector<MachineInfo> ThisComputer::List(const MachineOptions& /*options*/) { return {}; }

Result<MachineInfo> ThisComputer::Describe(const std::string& /*machine*/,
                                           const MachineOptions& /*options*/) {
  return Fail("The machine is this computer.");
}

}  // namespace kestrune::platform::win32
