#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/display_api.h"
#include "platform/driver.h"
#include "platform/inspection.h"
#include "platform/machine.h"
#include "platform/portable/folder_listing.h"
#include "platform/result.h"
#include "platform/system_api.h"
#include "platform/version_api.h"

namespace kestrune::platform::portable {

/// A size of the display, in every depth where none is given.
struct DescribedSize {
  int width = 0;
  int height = 0;
  std::optional<int> depth;
};

/// The display modes as the driver lists them, number 0 first.
struct DescribedDisplay {
  std::optional<std::vector<DisplayMode>> modes;
  std::vector<DescribedSize> restart_needed;  ///< a change to it asks for a restart
  std::vector<DescribedSize> refused;         ///< a change to it fails
};

struct DescribedMemory {
  std::optional<std::int64_t> total;  ///< bytes
  std::optional<std::int64_t> available;
};

struct DescribedProcessor {
  std::optional<int> count;
  std::optional<int> type;  ///< such as 586
  std::optional<int> mhz;
  std::optional<std::vector<std::string>> names;  ///< one a processor
  std::optional<std::string> identifier;
  std::optional<std::string> vendor;
  std::optional<std::vector<int>> load;  ///< percent, one a processor; absent: measured
};

/// What a machine's hardware and operating system would report. A table that the file has is the
/// whole truth: what it lacks is 0 or empty. Where a table is left out its members are absent, and
/// the running machine answers for them.
struct MachineDescription {
  std::string file;      ///< where it was read
  std::string title;     ///< for people
  std::string registry;  ///< the registry file of a new store, beside this one; may be empty
  int code_page = 1252;
  ProgramNames programs = ProgramNames::kExe;
  OsVersion os{5, 1, 2};
  std::string system_folder = "C:\\WINDOWS\\system32";
  std::map<std::string, std::string> file_versions;  ///< by name, folded
  std::optional<std::vector<DisplayDevice>> display_devices;
  DescribedDisplay display;
  std::optional<DescribedClocks> clocks;  ///< absent: the stand-in never answers
  DescribedMemory memory;
  DescribedProcessor processor;
  std::optional<std::vector<ProcessRecord>> processes;  ///< without that of number 0
};

struct LoadedDescription {
  MachineDescription description;
  std::vector<std::string> warnings;  ///< "FILE:LINE: unknown key ...", one each
};

/// Reads a description. The reason of a failure is "FILE:LINE:COLUMN: ..." where it has a place.
Result<LoadedDescription> LoadMachineDescription(const std::string& file);
Result<LoadedDescription> ParseMachineDescription(std::string_view text, const std::string& file);

/// The registry file that stands beside a description; empty where it names none.
std::string RegistryFileOf(const MachineDescription& machine);
/// What is wrong with a description of that file, and with the registry file that it names.
using RegistryCheck = std::function<Result<Findings, FileFailure>(const std::string& file)>;
DescriptionCheck CheckMachineDescription(std::string_view text, const std::string& file,
                                         const RegistryCheck& check_registry);

/// The file of a description: `machine` itself when it has a slash or ends in ".toml", else the
/// file of that name in the first of the folders that has one.
Result<std::string> FindMachineDescription(const std::string& machine,
                                           const std::vector<std::string>& folders);
/// All descriptions by name; of two with the same name, the first folder's.
std::vector<MachineInfo> ListMachineDescriptions(const std::vector<std::string>& folders);

}  // namespace kestrune::platform::portable
