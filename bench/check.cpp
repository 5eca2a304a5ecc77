#include "check.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "cli/command_line.h"
#include "failure.h"
#include "platform/portable/portable_machine.h"
#include "platform/portable/whole_file.h"

namespace kestrune::bench {

namespace {

constexpr Limit kCheckLimit{3.0, 3.0};
constexpr int kRunsARound = 3;

std::vector<std::string> FilesBelow(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) files.push_back(entry.path().string());
  }
  return files;
}

}  // namespace

std::vector<Row> CompareCheck(const std::string& folder, int rounds) {
  // No store of the user's own counts.
  setenv("XDG_DATA_HOME", (folder + "/nobody").c_str(), 1);
  platform::portable::PortableMachines machines;
  const auto ours = [&machines] {
    std::ostringstream out;
    if (cli::RunCommandLine({"--machine", "host", "check"}, machines, {out, out}) != 0) {
      GiveUp(out.str());
    }
  };
  const std::string programs =
      std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
  std::vector<std::string> files;
  for (const char* each : {"/DATA", "/machines"}) {
    for (std::string& file : FilesBelow(programs + each)) files.push_back(std::move(file));
  }
  const auto plain = [&files] {
    for (const std::string& file : files) {
      if (!platform::portable::ReadWholeFile(file).Ok()) GiveUp(file + " can't be read.");
    }
  };
  return {Compare(
      "check of every shipped file : reading the same bytes", kCheckLimit, rounds,
      [&] { return ProcessorTimeOf(kRunsARound, ours); },
      [&] { return ProcessorTimeOf(kRunsARound, plain); })};
}

}  // namespace kestrune::bench
