#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/command_line_run.h"

namespace kestrune::cli {
namespace {

/// Runs on a machine whose description stands in the test.
struct ListCommandsTest : CommandLineTest {
  Outcome RunOn(const std::string& description, std::vector<std::string> arguments) {
    folder.Write("m.toml", description);
    std::vector<std::string> all = {"--store",         folder / "m.store", "--machine",
                                    folder / "m.toml", "--program-folder", program_folder};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCommandLine(all, machines, {out, err});
    return {status, out.str(), err.str()};
  }
};

TEST_F(ListCommandsTest, ProcessesAreListedWithTheDetailsThatThePageHas) {
  std::string description;
  for (int i = 1; i <= 202; ++i) {
    description += "[[process]]\nname = \"p\\t" + std::to_string(i) +
                   "\"\nid = " + std::to_string(i) + "\npriority = 8\n";
  }
  const std::string text = RunOn(description, {"processes"}).out;
  EXPECT_TRUE(text.starts_with("p\\x091\np\\x092\n")) << text;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 202);
  const auto list = nlohmann::json::parse(RunOn(description, {"--json", "processes"}).out);
  ASSERT_EQ(list.size(), 202u);
  EXPECT_EQ(list[200].dump(),
            R"({"id":201,"name":"p\\x09201","parent":0,"priority":8,"threads":0})");
  EXPECT_EQ(list[201].dump(),
            R"({"id":null,"name":"p\\x09202","parent":null,"priority":null,"threads":null})");
}

TEST_F(ListCommandsTest, ModesAreListedAndARestartIsNotTheUsualAnswer) {
  const std::string description =
      "[display]\nmodes = [\"640x480x16 60Hz\", \"800x600x32 75Hz\"]\n"
      "restart_needed = [\"800x600\"]\n";
  EXPECT_EQ(RunOn(description, {"modes"}).out, "800x600x32 75Hz\n");
  EXPECT_EQ(nlohmann::json::parse(RunOn(description, {"--json", "modes"}).out).dump(),
            R"([{"name":"800x600x32 75Hz"}])");
  const auto told = [&](std::vector<std::string> options) {
    const std::vector<std::string> steps = {"--trace", "do", "page:control-panel.resolution",
                                            "control-panel.resolution.select-resolution=#0",
                                            "control-panel.resolution.apply"};
    options.insert(options.end(), steps.begin(), steps.end());
    return RunOn(description, options).err;
  };
  const std::string asked =
      "mode\t800x600x32\tsaved\nmessage: The computer must be restarted to change the display "
      "mode. Restart it now?\n";
  EXPECT_EQ(told({}), asked);
  EXPECT_EQ(told({"--answer", "cancel"}), asked);
  EXPECT_EQ(told({"--answer", "ok"}), asked + "restart\n");
}

TEST_F(ListCommandsTest, TheDirectXReportIsOfThisComputerWhateverMachineIsDescribed) {
  const auto report = [this](std::vector<std::string> options) {
    options.insert(options.end(), {"--json", "show", "info.directx"});
    const auto shown = nlohmann::json::parse(RunOn("", options).out);
    return shown[1]["items"].get<std::vector<std::string>>();
  };
  EXPECT_EQ(report({"--dry-run"}), std::vector<std::string>{"Please wait ..."});
  EXPECT_FALSE(std::filesystem::exists(folder / "program/DATA/d3d_adapter_info.txt"));
  const std::vector<std::string> lines = report({});
  ASSERT_GE(lines.size(), 2u);
  EXPECT_TRUE(lines[0].starts_with("Graphics of the computer that the program runs on"))
      << lines[0];
  EXPECT_EQ(report({"--dry-run"}), lines);
}

TEST_F(ListCommandsTest, BasicInformationIsWhatTheDescriptionSays) {
  const auto shown = [this](const std::string& description) {
    return RunOn(description, {"get", "info.basic.cpu", "info.basic.identifier",
                               "info.basic.real-cpu-speed", "info.basic.total-physics-memory"})
        .out;
  };
  EXPECT_EQ(shown("[processor]\ncount = 2\nname = \"  P4\"\nmhz = 3000\nvendor = \"V\"\n"
                  "identifier = \"x86\"\n[memory]\ntotal = 1073741824\n"),
            "CPU: P4 / x86\nIdentifier: V with HT\nReal CPU speed: 3000MHz\n"
            "Total physics memory: 1024 MB (1 MB free)\n");
  EXPECT_EQ(shown("[processor]\ncount = 2\nname = [\"A\", \"B\"]\ntype = 586\n[memory]\n"),
            "CPU: A / 586\nIdentifier: \nReal CPU speed:\n"
            "Total physics memory: 0 MB (1 MB free)\n");
}

}  // namespace
}  // namespace kestrune::cli
