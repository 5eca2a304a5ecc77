#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>

#include "platform/portable/display.h"
#include "platform/portable/machine_description.h"
#include "platform/portable/portable_machine.h"
#include "platform/portable/processor.h"
#include "platform/portable/versions.h"
#include "platform/temp_folder.h"
#include "platform/windowless_dialog.h"

namespace kestrune::platform::portable {
namespace {

constexpr const char* kWhole = R"(
name = "Title"
registry = "a.reg"
codepage = 1250
programs = "executable"
[os]
major = 4
minor = 10
platform = 1
system_folder = 'C:\WINDOWS\SYSTEM'
[file_versions]
"NV4_disp.dll" = "4.5"
[[display_device]]
name = '\\.\DISPLAY1'
description = "Card"
state = 5
hardware_id = 'PCI\VEN_10DE'
driver_key = '\Registry'
[[display_device]]
[display]
modes = ["640x480x16 60Hz"]
restart_needed = ["640x480", "800x600x16"]
refused = []
[clocks]
core = 325
memory = 700
core_3d = 350
memory_3d = 701
homer = 1000
key_revision = "A1"
[memory]
total = 5368709120
available = 0
[processor]
count = 2
type = 586
mhz = 2400
name = "P"
identifier = "I"
vendor = "V"
load = [37, 42]
)";

TEST(MachineDescriptionTest, EveryKeyArrives) {
  auto loaded = ParseMachineDescription(kWhole, "m.toml");
  ASSERT_TRUE(loaded.Ok()) << loaded.Reason();
  EXPECT_EQ(loaded.Value().warnings, std::vector<std::string>{});
  const MachineDescription& m = loaded.Value().description;
  EXPECT_EQ(m.title + m.registry + m.system_folder, "Titlea.regC:\\WINDOWS\\SYSTEM");
  EXPECT_EQ(m.code_page * 1000 + m.os.major * 100 + m.os.minor * 10 + m.os.platform, 1250501);
  EXPECT_EQ(m.programs, ProgramNames::kExecutable);
  EXPECT_EQ(DescribedVersions(m).FileVersionText("nv4_DISP.dll"), "4.5");
  EXPECT_EQ(DescribedVersions(m).FileVersionText("other.dll"), std::nullopt);
  ASSERT_EQ(m.display_devices->size(), 2u);
  const DisplayDevice& device = m.display_devices->front();
  EXPECT_EQ(device.name + device.description + device.hardware_id + device.driver_key,
            "\\\\.\\DISPLAY1CardPCI\\VEN_10DE\\Registry");
  EXPECT_EQ(device.state, 5u);
  EXPECT_EQ(m.display.modes, (std::vector<DisplayMode>{{640, 480, 16, 60}}));
  EXPECT_EQ(m.display.restart_needed.at(0).depth, std::nullopt);
  EXPECT_EQ(m.display.restart_needed.at(1).width + *m.display.restart_needed.at(1).depth, 816);
  EXPECT_EQ(*m.clocks->core + *m.clocks->memory + *m.clocks->core_3d + *m.clocks->memory_3d +
                *m.clocks->homer,
            325 + 700 + 350 + 701 + 1000);
  EXPECT_EQ(m.clocks->key_revision, "A1");
  EXPECT_EQ(m.memory.total, 5368709120);
  EXPECT_EQ(m.memory.available, 0);
  EXPECT_EQ(*m.processor.count + *m.processor.type + *m.processor.mhz, 2 + 586 + 2400);
  EXPECT_EQ(m.processor.names->back() + *m.processor.identifier + *m.processor.vendor, "PIV");
  EXPECT_EQ(m.processor.load, (std::vector<int>{37, 42}));
}

TEST(MachineDescriptionTest, FaultsNameTheirPlace) {
  struct Case {
    const char* text;
    const char* fault;
  };
  for (const auto& [text, fault] : {
           Case{"name = 5", "m.toml:1:8: \"name\" must be a text"},
           Case{"programs = \"com\"",
                "m.toml:1:12: \"programs\" must be \"executable\" or \"exe\""},
           Case{"\nprograms = 1", "m.toml:2:12: \"programs\" must be \"executable\" or \"exe\""},
           Case{"\n[os]\nmajor = \"5\"",
                "m.toml:3:9: \"major\" must be a whole number from 0 to 65535"},
           Case{"[os]\nplatform = 3",
                "m.toml:2:12: \"platform\" must be a whole number from 1 to 2"},
           Case{"[clocks]\ncore = 40000",
                "m.toml:2:8: \"core\" must be a whole number from 1 to 32767"},
           Case{"[clocks]\nmemory_3d = 0",
                "m.toml:2:13: \"memory_3d\" must be a whole number from 1 to 32767"},
           Case{"[clocks]\nhomer = 4294967296",
                "m.toml:2:9: \"homer\" must be a whole number from 0 to 2147483647"},
           Case{"[memory]\ntotal = -1",
                "m.toml:2:9: \"total\" must be a whole number from 0 to 1125899906842624"},
           Case{"[memory]\navailable = 1.5",
                "m.toml:2:13: \"available\" must be a whole number from 0 to 1125899906842624"},
           Case{"[processor]\ncount = 0",
                "m.toml:2:9: \"count\" must be a whole number from 1 to 64"},
           Case{"[display]\nmodes = [\"640x480 60Hz\"]",
                "m.toml:2:10: \"modes\" must be texts such as \"1024x768x32 85Hz\""},
           Case{"[display]\nmodes = [\"640x480x16 60\"]",
                "m.toml:2:10: \"modes\" must be texts such as \"1024x768x32 85Hz\""},
           Case{"[display]\nrefused = [\"640x480x0\"]",
                "m.toml:2:12: \"refused\" must be texts such as \"1024x768x32\" or \"1024x768\""},
           Case{"os = 1", "m.toml:1:6: \"os\" must be a table"},
           Case{"[display_device]", "m.toml:1:1: \"display_device\" must be an array of tables"},
           Case{"[processor]\nload = [1,\n  \"2\"]",
                "m.toml:3:3: \"load\" must be a whole number from 0 to 100"},
           Case{"[processor]\nload = [101]",
                "m.toml:2:9: \"load\" must be a whole number from 0 to 100"},
           Case{"[file_versions]\n\"a.dll\" = 1", "m.toml:2:11: \"a.dll\" must be a text"},
       }) {
    const auto loaded = ParseMachineDescription(text, "m.toml");
    EXPECT_EQ(loaded.Ok() ? "" : loaded.Reason(), fault) << text;
  }
  for (const auto& [text, place] : {
           Case{"name = \"a\nb\"", "m.toml:1:"},
           Case{"a = 1\na = 2", "m.toml:2:"},
           Case{"\n[os\n", "m.toml:2:"},
           Case{"\n\n  x = \xFF", "m.toml:3:"},
       }) {
    const auto loaded = ParseMachineDescription(text, "m.toml");
    ASSERT_FALSE(loaded.Ok()) << text;
    EXPECT_TRUE(loaded.Reason().starts_with(place)) << loaded.Reason();
  }
}

TEST(MachineDescriptionTest, NoFileIsTooDeepToBeReadOrRefused) {
  const auto repeated = [](std::string_view part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
  };
  constexpr const char* kTooDeep = "m.toml:2:1: the line has too many dots";
  const auto fault = [](const std::string& text) {
    const auto loaded = ParseMachineDescription(text, "m.toml");
    return loaded.Ok() ? "" : loaded.Reason();
  };
  EXPECT_EQ(fault("\n[a" + repeated(".a", 300000) + "]"), kTooDeep);
  EXPECT_EQ(fault("\nx = {a" + repeated(".a", 300000) + " = 1}"), kTooDeep);
  EXPECT_EQ(fault("[a" + repeated(".a", 256) + "]"), "");
  // As deep as the limits together allow.
  std::string deepest = "x = ";
  for (int i = 0; i < 4; ++i) deepest += "[{a" + repeated(".a", 256) + " =\n";
  EXPECT_NE(fault(deepest), "");
  EXPECT_NE(fault(repeated("[", 300000)), "");
}

TEST(MachineDescriptionTest, ATableThatIsThereLacksNothing) {
  const auto loaded =
      ParseMachineDescription("[processor]\ncount = 2\nname = \"P\"\n[memory]\ntotal = 5\n", "m");
  ASSERT_TRUE(loaded.Ok());
  const MachineDescription& m = loaded.Value().description;
  EXPECT_EQ(m.processor.names, (std::vector<std::string>{"P", "P"}));
  EXPECT_EQ(m.processor.mhz, 0);
  EXPECT_EQ(m.processor.vendor, "");
  EXPECT_EQ(m.memory.available, 0);
  const auto named = ParseMachineDescription("[processor]\nname = [\"P\", \"Q\"]\n", "m");
  EXPECT_EQ(named.Value().description.processor.names, (std::vector<std::string>{"P", "Q"}));
  const MachineDescription bare = ParseMachineDescription("", "m").Value().description;
  EXPECT_FALSE(bare.processor.count || bare.processor.names || bare.memory.total);
}

TEST(MachineDescriptionTest, UnknownKeysAreWarningsWithTheirLine) {
  const auto loaded = ParseMachineDescription("nam = 1\n[os]\nmajor = 6\nmayor = 7\n[cpu]\n", "m");
  ASSERT_TRUE(loaded.Ok());
  EXPECT_EQ(loaded.Value().description.os.major, 6);
  auto warnings = loaded.Value().warnings;
  std::sort(warnings.begin(), warnings.end());
  EXPECT_EQ(warnings,
            (std::vector<std::string>{"m:1: unknown key \"nam\"", "m:4: unknown key \"mayor\"",
                                      "m:5: unknown key \"cpu\""}));
}

TEST(MachineDescriptionTest, MachinesAreFoundByNameOrByFile) {
  TempFolder folder;
  folder.Write("user/a.toml", "name = \"mine\"");
  folder.Write("installed/a.toml", "name = \"theirs\"");
  folder.Write("installed/b.toml", "name = ");
  folder.Write("installed/c.reg", "");
  const std::vector<std::string> folders = {folder / "user", folder / "installed"};
  EXPECT_EQ(FindMachineDescription("a", folders).Value(), folder / "user/a.toml");
  EXPECT_EQ(FindMachineDescription(folder / "installed/a.toml", {}).Value(),
            folder / "installed/a.toml");
  EXPECT_EQ(FindMachineDescription("c", folders).Reason(),
            "There is no machine \"c\"; there are a, b.");
  EXPECT_EQ(FindMachineDescription("./no/a.toml", folders).Reason(),
            "There is no machine description ./no/a.toml.");
  const auto machines = ListMachineDescriptions(folders);
  ASSERT_EQ(machines.size(), 2u);
  EXPECT_EQ(machines[0].title, "mine");
  EXPECT_TRUE(machines[1].title.starts_with(folder / "installed/b.toml:1:"));
}

TEST(HostTest, ProcessorsAndDisplayDevicesAreReadFromTheSystemsOwnFiles) {
  constexpr std::string_view kCpuInfo =
      "processor\t: 0\nvendor_id\t: GenuineIntel\ncpu family\t: 15\nmodel\t\t: 2\n"
      "model name\t: Intel(R) P4\nstepping\t: 7\ncpu MHz\t\t: 2399.7\n\n"
      "processor\t: 1\nmodel name\t: other\n";
  DescribedProcessor described;
  described.mhz = 100;
  const DescribedProcessor processor = Completed(described, ReadProcessors(kCpuInfo));
  EXPECT_EQ(processor.count, 2);
  EXPECT_EQ(processor.mhz, 100);
  EXPECT_EQ(processor.names, (std::vector<std::string>{"Intel(R) P4", "other"}));
  EXPECT_EQ(processor.identifier, "x86 Family 15 Model 2 Stepping 7");

  TempFolder folder;
  folder.Write("0000:00:02.0/class", "0x020000\n");
  folder.Write("0000:01:00.0/class", "0x030000\n");
  folder.Write("0000:01:00.0/vendor", "0x10de\n");
  folder.Write("0000:01:00.0/device", "0x0041\n");
  folder.Write("0000:01:00.0/subsystem_vendor", "0x1458\n");
  folder.Write("0000:01:00.0/subsystem_device", "0xc520\n");
  folder.Write("0000:01:00.0/revision", "0xa1\n");
  folder.Write("0000:01:00.0/boot_vga", "1\n");
  const auto devices = ReadPciDisplayDevices(folder / "");
  ASSERT_EQ(devices.size(), 1u);
  EXPECT_EQ(devices[0].hardware_id, "PCI\\VEN_10DE&DEV_0041&SUBSYS_C5201458&REV_A1");
  EXPECT_EQ(devices[0].name, "\\\\.\\DISPLAY1");
  EXPECT_EQ(devices[0].state, 5u);
}

class PortableMachineTest : public testing::Test {
 protected:
  PortableMachineTest() {
    for (const char* name : {"KESTRUNE_STORE", "KESTRUNE_MACHINE", "KESTRUNE_PROGRAM_FOLDER"}) {
      unsetenv(name);
    }
    setenv("XDG_DATA_HOME", folder_.operator/("home").c_str(), 1);
    folder_.Write("share/kestrune/machines/box.toml", "registry = \"box.reg\"\nodd = 1\n");
    folder_.Write("share/kestrune/machines/box.reg",
                  "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n@=\"v\"\n");
    options_.machine = "box";
  }

  TempFolder folder_;
  WindowlessDialog dialog_;
  PortableMachines machines_{folder_ / "bin"};
  MachineOptions options_;
};

TEST_F(PortableMachineTest, ANewStoreHoldsTheMachinesRegistry) {
  {
    auto machine = machines_.Open(options_);
    ASSERT_TRUE(machine.Ok()) << machine.Reason();
    EXPECT_EQ(machine.Value()->Warnings().size(), 1u);
    EXPECT_EQ(machine.Value()->ServicesFor(dialog_).files.Locate("x"), std::nullopt);
  }
  // The registry file isn't needed again.
  std::filesystem::remove(folder_ / "share/kestrune/machines/box.reg");
  auto machine = machines_.Open(options_);
  ASSERT_TRUE(machine.Ok()) << machine.Reason();
  EXPECT_TRUE(std::filesystem::exists(folder_ / "home/kestrune/box.store"));
  RegHandle key = 0;
  EXPECT_EQ(
      machine.Value()->ServicesFor(dialog_).registry.OpenKey(RegRoot::kLocalMachine, "k", key),
      RegStatus::kSuccess);
}

TEST_F(PortableMachineTest, WhatKeepsAMachineFromOpeningIsOneSentence) {
  struct Case {
    const char* machine;
    const char* reg;
    std::string reason;
  };
  const std::string reg = folder_ / "share/kestrune/machines/box.reg";
  for (const Case& c : {
           Case{"none", "", "There is no machine \"none\"; there are box."},
           Case{"box", "REGEDIT4\n[x]\n", reg + ":2: x is no root"},
           Case{"box", nullptr,
                "The registry file " + reg + " can't be read: No such file or directory."},
       }) {
    if (c.reg != nullptr) folder_.Write("share/kestrune/machines/box.reg", c.reg);
    if (c.reg == nullptr) std::filesystem::remove(reg);
    options_.machine = c.machine;
    const auto machine = machines_.Open(options_);
    EXPECT_EQ(machine.Ok() ? "" : machine.Reason(), c.reason);
  }
}

TEST_F(PortableMachineTest, PlacesComeFromOptionsThenEnvironmentThenDefaults) {
  MachinePlaces places = FindPlaces({}, folder_ / "bin");
  EXPECT_EQ(places.machine, "winxp-geforce6800");
  EXPECT_EQ(places.store, folder_ / "home/kestrune/winxp-geforce6800.store");
  EXPECT_EQ(places.program_folders,
            (std::vector{folder_ / "home/kestrune", folder_ / "share/kestrune"}));

  setenv("KESTRUNE_STORE", "/env.store", 1);
  setenv("KESTRUNE_MACHINE", "dir/other.v2.toml", 1);
  setenv("KESTRUNE_PROGRAM_FOLDER", folder_.operator/("given").c_str(), 1);
  folder_.Write("bin/DATA/x", "");
  places = FindPlaces({}, folder_ / "bin");
  EXPECT_EQ(places.store, "/env.store");
  EXPECT_EQ(places.program_folders, std::vector{folder_ / "given"});
  EXPECT_EQ(places.machine_folders,
            (std::vector{folder_ / "home/kestrune/machines", folder_ / "bin/machines"}));
  folder_.Write("given/machines/x.toml", "");
  unsetenv("KESTRUNE_STORE");
  places = FindPlaces({}, folder_ / "bin");
  EXPECT_EQ(places.machine_folders, std::vector{folder_ / "given/machines"});
  EXPECT_EQ(places.store, folder_ / "home/kestrune/other.v2.store");
  EXPECT_EQ(FindPlaces({.store = "s", .machine = "a.b", .program_folder = "p"}).store, "s");
  EXPECT_EQ(FindPlaces({.machine = "a.b"}).store, folder_ / "home/kestrune/a.b.store");
  setenv("XDG_DATA_HOME", "relative", 1);
  setenv("HOME", "/h", 1);
  EXPECT_EQ(FindPlaces({.machine = "m"}).store, "/h/.local/share/kestrune/m.store");
}

}  // namespace
}  // namespace kestrune::platform::portable
