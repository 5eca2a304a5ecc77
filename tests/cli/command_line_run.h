#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/outcome.h"
#include "fake_machine.h"
#include "platform/portable/portable_machine.h"
#include "platform/temp_folder.h"

namespace kestrune::cli {

/// Runs kestrunectl in this process, on a store of each machine's own.
struct CommandLineTest : testing::Test {
  /// The shipped program folder, in which something may be written.
  CommandLineTest() {
    namespace fs = std::filesystem;
    const fs::path shipped = KESTRUNE_DATA_FOLDER;
    fs::create_directories(program_folder + "/DATA");
    fs::create_directory_symlink(shipped / "machines", program_folder + "/machines");
    for (const auto& each : fs::directory_iterator(shipped / "DATA")) {
      fs::create_symlink(each.path(), fs::path(program_folder) / "DATA" / each.path().filename());
    }
  }

  Outcome Run(std::vector<std::string> arguments,
              const std::string& machine = "winxp-geforce7800") {
    std::vector<std::string> all = {"--store", folder / (machine + ".store"), "--machine", machine};
    if (!program_folder.empty()) all.insert(all.end(), {"--program-folder", program_folder});
    all.insert(all.end(), arguments.begin(), arguments.end());
    return RunOn(machines, all);
  }
  /// What a run prints, which must succeed in silence.
  std::string Out(const std::vector<std::string>& arguments) {
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }

  /// Fails the test unless a run ends with that status, after one sentence with `part` in it.
  void ExpectRefused(int status, const std::string& part, const std::vector<std::string>& arguments,
                     const std::string& machine = "winxp-geforce7800") {
    const Outcome outcome = Run(arguments, machine);
    const std::string what = testing::PrintToString(arguments) + ": " + outcome.err;
    EXPECT_EQ(outcome.status, status) << what;
    EXPECT_EQ(outcome.out, "") << what;
    EXPECT_TRUE(outcome.err.starts_with("kestrunectl: ")) << what;
    EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << what;
    EXPECT_NE(outcome.err.find(part), std::string::npos) << what << "has no " << part;
  }

  platform::TempFolder folder;
  std::string program_folder = folder / "program";  ///< empty: the user's and the installed one
  platform::portable::PortableMachines machines;
};

}  // namespace kestrune::cli
