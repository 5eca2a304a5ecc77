#include <gtest/gtest.h>

#include "core/field_reader.h"
#include "detect/adapter.h"
#include "detect/card_data.h"
#include "detect/versions.h"
#include "fake_machine.h"

namespace kestrune::detect {
namespace {

using test::Driven;
using test::FakeMachine;

TEST(VersionsTest, NamesTheSystemByItsVersionRecord) {
  struct Case {
    platform::OsVersion os;
    int family;
    std::string line;
  };
  const Case cases[] = {{{5, 0, 2}, 2, "Windows 2000"},   {{4, 0, 2}, 1, "Windows NT"},
                        {{4, 10, 1}, 0, "Windows 9x/Me"}, {{4, 90, 1}, 0, "Windows 9x/Me"},
                        {{6, 0, 2}, 4, "Windows Vista"},  {{5, 1, 2}, 3, "Windows XP "},
                        {{5, 2, 2}, 3, "Windows XP "},    {{7, 0, 2}, 3, "Windows XP "},
                        {{4, 0, 3}, 3, "Windows XP "},    {{6, 1, 1}, 4, "Windows Vista"},
                        {{5, 0, 1}, 2, "Windows 2000"},   {{3, 51, 2}, 3, "Windows XP "}};
  for (const Case& each : cases) {
    FakeMachine machine;
    machine.os = each.os;
    const Driven driven(machine);
    EXPECT_EQ(driven.State("OSFamily"), std::to_string(each.family));
    EXPECT_EQ(driven.Caption("info.basic.os-version"), "OS version: " + each.line);
  }
}

TEST(VersionsTest, AddsTheServicePack) {
  FakeMachine machine;
  machine.Store(R"(HKLM\Software\Microsoft\Windows NT\CurrentVersion)", "CSDVersion",
                "REG_SZ Service Pack 2");
  EXPECT_EQ(Driven(machine).Caption("info.basic.os-version"),
            "OS version: Windows XP  with Service Pack 2");
}

TEST(VersionsTest, NamesDirectXByItsBuild) {
  const std::tuple<std::string, int, std::string> cases[] = {
      {"", 0, "8 or low"},
      {"4.08.00.0400", 400, "8 or low"},
      {"4.9.0.899", 899, "8 or low"},
      {"4.09.0000.0090", 90, "9.0c"},
      {"4.9.0.900", 900, "9.0"},
      {"4.9.0.901", 901, "9.0a"},
      {"4.9.0.902", 902, "9.0b"},
      {"4.9.0.903", 903, "9.0 or higher"},
      {"4.09.0000.0904", 904, "9.0c"},
      {"5.03.2600.2180 (xpsp_sp2_rtm.040803-2158)", 2180, "9.0c"},
      {"6.00.6000.6385", 6385, "9.0 or higher"},
      {"6.0.6000.16386", 6386, "10 or higher"},
      {"no version", 0, "8 or low"}};
  for (const auto& [text, build, name] : cases) {
    FakeMachine machine;
    machine.direct3d_version = text;
    const Driven driven(machine);
    EXPECT_EQ(driven.State("DirectXBuild"), std::to_string(build)) << text;
    EXPECT_EQ(driven.Caption("info.basic.directx-version"), "DirectX version: " + name) << text;
  }
}

TEST(VersionsTest, AddsTheDirectXTextExceptOnVista) {
  for (const int family : {3, 4}) {
    FakeMachine machine({.family = family});
    machine.Store(R"(HKLM\Software\Microsoft\DirectX)", "Version", "REG_SZ 4.09");
    EXPECT_EQ(Driven(machine).Caption("info.basic.directx-version"),
              std::string("DirectX version: 9.0c") + (family == 4 ? "" : " (4.09)"));
  }
}

TEST(VersionsTest, ReadsTheReleaseFromTheSystemsOwnFile) {
  const char* driver_files[] = {"NvCpl.dll", "nv4_disp.dll", "nv4_disp.dll", "nv4_disp.dll",
                                "nvd3dum.dll"};
  const char* direct3d_files[] = {"d3d8.dll", "d3d9.dll", "d3d9.dll", "d3d9.dll", "d3d10.dll"};
  for (int family = 0; family <= 4; ++family) {
    FakeMachine machine({.family = family});
    const Driven driven(machine);
    const std::string log = test::Joined(machine.log);
    EXPECT_NE(log.find(std::string("version ") + driver_files[family]), log.npos) << family;
    EXPECT_NE(log.find(std::string("version ") + direct3d_files[family]), log.npos) << family;
  }
}

TEST(VersionsTest, WarnsOfOldDriversOutsideWindows9x) {
  struct Case {
    int family;
    std::string text;
    int driver;
    std::size_t messages;
  };
  const Case cases[] = {
      {2, "6.14.10.2218", 2218, 1},   {3, "6.14.10.2299", 2299, 1}, {3, "6.14.10.2300", 2300, 0},
      {3, "6.14.10.930", 930, 1},     {0, "4.13.01.2183", 2183, 0}, {3, "", 0, 0},
      {3, "6.14.10.7772  ", 7772, 0}, {4, "7.15.11.5822", 5822, 0}, {4, "7.15.11.0065", 65, 1}};
  for (const Case& each : cases) {
    FakeMachine machine({.family = each.family});
    machine.driver_version = each.text;
    const Driven driven(machine);
    EXPECT_EQ(driven.State("DrvVer"), std::to_string(each.driver)) << each.text;
    EXPECT_EQ(machine.messages.size(), each.messages) << each.text;
  }
  FakeMachine machine;
  machine.driver_version = "6.14.10.7772  ";
  EXPECT_EQ(Driven(machine).Caption("info.basic.display-driver-version"),
            "Display driver version: 6.14.10.7772");
}

TEST(AdapterTest, TakesTheKeyOfTheFirstNvidiaDeviceAndTheIdentityOfTheLast) {
  FakeMachine machine;
  machine.devices = {
      {"", "Other", 0, R"(PCI\VEN_1002&DEV_4C59&SUBSYS_00000000&REV_00)", R"(\Registry\X)"},
      {"", "One", 0, R"(  PCI\VEN_10DE&DEV_00F9&SUBSYS_00000000&REV_A2  )",
       R"(\Registry\Machine\System\Current\{A}\0000)" + std::string(1, '\0') + "rest"},
      {"", "Two", 0, R"(PCI\VEN_10DE&DEV_0281&SUBSYS_11111111&REV_B1)", R"(\SYSTEM\other)"},
      {"", "Mirror", 0, "", ""}};
  const Driven driven(machine);
  EXPECT_EQ(driven.State("PureKey"), R"(System\Current\{A}\0000)");
  EXPECT_EQ(driven.State("DeviceId"), "0281");
  EXPECT_EQ(driven.State("DeviceIdPrefix"), "028");
  EXPECT_EQ(driven.State("DeviceIdNumber"), "641");
  EXPECT_EQ(driven.State("VendorId"), "10DE");
  EXPECT_EQ(driven.State("GpuRevision"), "B1");
  EXPECT_EQ(driven.State("DeviceInstanceKey"),
            R"(Devices\VEN_10DE&DEV_0281&SUBSYS_11111111&REV_B1&INST00)");
}

TEST(AdapterTest, TakesAKeyWithoutSystemWholeAndIdentifiersAsSignedNumbers) {
  FakeMachine machine;
  machine.devices = {{"", "", 0, R"(PCI\VEN_10DE&DEV_FFF0&SUBSYS_0&REV_A1)", R"(\SYSTEM\K)"}};
  const Driven driven(machine);
  EXPECT_EQ(driven.State("PureKey"), R"(\SYSTEM\K)");
  EXPECT_EQ(driven.State("DeviceIdNumber"), "-16");
}

TEST(AdapterTest, KeepsTheClocksBelowTheDeviceExceptOnOldDriversOfWindows9x) {
  const std::tuple<int, int, bool> cases[] = {
      {0, 2200, false}, {0, 2499, false}, {0, 2500, true}, {1, 2400, true}, {3, 8000, true}};
  for (const auto& [family, driver, below_device] : cases) {
    FakeMachine machine({.family = family, .driver = driver, .device = "0040"});
    EXPECT_EQ(
        Driven(machine).State("HardwareKey"),
        std::string(R"(Software\NVIDIA Corporation\Global\NVTweak\)") +
            (below_device ? R"(Devices\VEN_10DE&DEV_0040&SUBSYS_C5201458&REV_A1&INST00\)" : "") +
            "Hardware")
        << family << " " << driver;
  }
}

TEST(AdapterTest, TellsTheProcessorFamilyByTheDevice) {
  const std::pair<const char*, int> cases[] = {{"0040", 1}, {"00f9", 1}, {"0140", 1}, {"0141", 2},
                                               {"0161", 0}, {"0110", 0}, {"00F0", 0}, {"00F1", 1},
                                               {"00FB", 1}, {"0301", 1}, {"0330", 1}, {"0341", 1},
                                               {"00c1", 1}, {"0091", 1}, {"014F", 2}, {"", 0}};
  for (const auto& [device, family] : cases) {
    FakeMachine machine({.device = device});
    EXPECT_EQ(Driven(machine).State("CardVar"), std::to_string(family)) << device;
  }
}

TEST(AdapterTest, LooksForTheFirstKeyByFamilyAndShowsTheCardsName) {
  struct Case {
    int family;
    std::string key;
    std::string value;
  };
  const std::string video = R"(HKLM\SYSTEM\CurrentControlSet\Control\Video\)";
  const Case cases[] = {
      {0, R"(HKLM\System\CurrentControlSet\Services\Class\Display\0000)", "DriverDesc"},
      {1, R"(HKLM\SYSTEM\CurrentControlSet\Services\nv4\Device0)", "Device Description"},
      {2, R"(HKLM\SYSTEM\CurrentControlSet\Services\nv4\Device0)", "Device Description"},
      {3, video + R"({01234567-89AB-CDEF-0123-456789ABCDEF}\0000)", "Device Description"},
      {4, video + R"({01234567-89AB-CDEF-0123-456789ABCDEF}\0000)", "Device Description"}};
  for (const Case& each : cases) {
    FakeMachine machine({.family = each.family});
    machine.Store(R"(HKLM\HARDWARE\DEVICEMAP\VIDEO)", R"(\Device\Video0)",
                  R"(REG_SZ \REGISTRY\X\Video\{01234567-89AB-CDEF-0123-456789ABCDEF}\0000)");
    machine.Store(each.key, each.value, "REG_SZ Some card");
    core::basRegistry registry(machine.Services().registry);
    VersionState versions{.OSFamily = each.family};
    lang::LangTable texts;
    controls::Label name("info.basic.vga-device", nullptr);
    controls::ControlSet controls;
    ASSERT_TRUE(controls.Add(name));
    Adapter adapter(machine, registry, versions, texts, controls);
    adapter.FindVideoKey();
    adapter.ReadCardName();
    EXPECT_EQ(name.Caption(), "Some card") << each.family << " " << adapter.state.PureKey;
    adapter.FindDisplayAdapter();
    adapter.ReadCardName();
    EXPECT_EQ(name.Caption(), "Unknown card");
  }
}

constexpr std::string_view kProcessor = R"(HKLM\HARDWARE\DESCRIPTION\System\CentralProcessor\)";

TEST(SystemInformationTest, CountsMemoryInWholeModules) {
  const std::tuple<std::int64_t, std::int64_t, std::string> cases[] = {
      {1073741824, 134217728, "1024 MB (129 MB free)"},   {535822336, 0, "512 MB (1 MB free)"},
      {1071644672, 1572864, "1022 MB (3 MB free)"},  // a half goes to the even neighbour
      {1073112678, 2621440, "1024 MB (3 MB free)"},  // 1023.4 MB
      {1073217536, 524288, "1024 MB (1 MB free)"},   // 1023.5 MB
      {8589934592, 4294967296, "8192 MB (4097 MB free)"}, {0, 0, "0 MB (1 MB free)"}};
  for (const auto& [total, available, line] : cases) {
    FakeMachine machine;
    machine.memory = {total, available};
    EXPECT_EQ(Driven(machine).Caption("info.basic.total-physics-memory"),
              "Total physics memory: " + line);
  }
}

TEST(SystemInformationTest, NamesTheGraphicsProcessorAndItsBus) {
  const std::pair<std::string, std::string> cases[] = {{"0041", "0041"},
                                                       {"0140", "0140 (PCI Express)"},
                                                       {"0141", "0141 (PCI Express)"},
                                                       {"0142", "0142"},
                                                       {"0161", "0161 (PCI Express)"},
                                                       {"00fa", "00FA (PCI Express)"},
                                                       {"00FE", "00FE"},
                                                       {"00FF", "00FF (PCI Express)"},
                                                       {"009a", "009A (PCI Express)"},
                                                       {"0211", "0211 (PCI Express)"}};
  for (const auto& [device, shown] : cases) {
    FakeMachine machine({.device = device});
    const Driven driven(machine);
    EXPECT_EQ(driven.Caption("info.basic.gpu-id"), "GPU ID: " + shown);
    EXPECT_EQ(driven.Caption("info.basic.revision"), "Revision: A1");
  }
  FakeMachine bare({.device = ""});
  bare.devices = {{"", "", 0, R"(PCI\VEN_10DE&DEV_0041&SUBSYS_00000000)", R"(\SYSTEM\K)"}};
  EXPECT_EQ(Driven(bare).Caption("info.basic.revision"), "Revision: ");
}

TEST(SystemInformationTest, ShowsWhatTheProcessorsSayOfThemselves) {
  struct Case {
    std::vector<std::pair<std::string, std::string>> first;
    std::string second;  ///< name
    int count;
    std::string lines;  ///< name, vendor, speed
    std::string state;  ///< TwoCPU, Mhz
  };
  const std::pair<std::string, std::string> name = {"ProcessorNameString", "REG_SZ  P4 "};
  const std::pair<std::string, std::string> vendor = {"VendorIdentifier", "REG_SZ Intel"};
  const std::pair<std::string, std::string> identifier = {"Identifier", "REG_SZ x86"};
  const std::pair<std::string, std::string> mhz = {"~MHz", "REG_DWORD 2400"};
  const Case cases[] = {
      {{name, vendor, identifier, mhz},
       "",
       1,
       "CPU: P4 / x86|Identifier: Intel|Real CPU speed: 2400MHz",
       "0 2400"},
      {{name, vendor, mhz},
       "",
       2,
       "CPU: P4 / 586|Identifier: Intel|Real CPU speed: 2400MHz",
       "1 2400"},
      {{name, vendor, identifier},
       "P4",
       1,
       "CPU: P4 / x86|Identifier: Intel with HT|Real CPU speed:",
       "1 0"},
      {{name, vendor}, "other", 4, "CPU: P4 / 586|Identifier: Intel|Real CPU speed:", "0 0"},
      {{{"ProcessorNameString", "REG_SZ"}, {"VendorIdentifier", "REG_SZ"}, identifier},
       "",
       1,
       "CPU: |Identifier: |Real CPU speed:",
       "0 0"},
      {{identifier}, "", 1, "CPU:|Identifier:|Real CPU speed:", "0 0"},
      {{}, "", 0, "CPU:|Identifier:|Real CPU speed:", "0 0"}};
  for (const Case& each : cases) {
    FakeMachine machine;
    machine.processors.count = each.count;
    const std::string key(kProcessor);
    for (const auto& [value, data] : each.first) machine.Store(key + "0", value, data);
    if (!each.second.empty()) {
      machine.Store(key + "1", "ProcessorNameString", "REG_SZ " + each.second);
    }
    const Driven driven(machine);
    EXPECT_EQ(driven.Caption("info.basic.cpu") + "|" + driven.Caption("info.basic.identifier") +
                  "|" + driven.Caption("info.basic.real-cpu-speed"),
              each.lines);
    EXPECT_EQ(driven.State("TwoCPU") + " " + driven.State("Mhz"), each.state) << each.lines;
  }
}

TEST(CardDataTest, KeysAreShortFormsOfTheDevice) {
  FakeMachine machine;
  machine.Lay("data/mt.DAT", "0040,whole\n04,short\n0A,upper\n");
  machine.Lay("DATA/t.dat", "04,four,4\nF9,bridge,9\n\"0A\" , \" quoted, \" ,x\n04,again\n91");
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"0040", "mt", "whole"},    {"0040", "t", "four"}, {"00F9", "t", "bridge"},
      {"00A0", "t", " quoted, "}, {"00a0", "t", ""},     {"0141", "t", ""},
      {"0910", "t", ""},          {"0040", "none", ""},  {"", "t", ""},
      {"004", "mt", ""}};
  for (const auto& [device, table, value] : cases) {
    AdapterState adapter;
    adapter.DeviceId = device;
    adapter.DeviceIdPrefix = adapter.DeviceId.substr(0, 3);
    CardData cards(machine.Files(), adapter);
    EXPECT_EQ(cards.GetCardData(table, std::string_view(table) == "t"), value) << device << table;
  }
}

TEST(CardDataTest, TheThirdFieldComesWithAMatchAlone) {
  FakeMachine machine;
  machine.Lay("DATA/t.dat", "04,four,4\n05,half");
  AdapterState adapter;
  adapter.DeviceId = "0040";
  adapter.DeviceIdPrefix = "004";
  CardData cards(machine.Files(), adapter);
  cards.GetCardData("t", true);
  EXPECT_EQ(cards.CardDataExtra, "4");
  adapter.DeviceId = "0070";
  cards.GetCardData("t", true);
  EXPECT_EQ(cards.CardDataExtra, "4");
  adapter.DeviceId = "0050";
  EXPECT_EQ(cards.GetCardData("t", true), "half");
  EXPECT_EQ(cards.CardDataExtra, "");
  adapter.DeviceId = "0040";
  cards.GetCardData("t", false);
  EXPECT_EQ(cards.CardDataExtra, "");
}

/// A row of a shipped table has a key of hexadecimal digits, never twice, and values of its table.
TEST(CardDataTest, ShippedTablesAreWellFormed) {
  const std::string versions = " 0.0:0 1.1:1 1.3:2 1.4:3 2.0:4 3.0:5 ";
  struct Table {
    std::string name;
    bool has_extra;
    std::string values;
  };
  const Table tables[] = {{"mt", false, " 1: 2: 4: 8: "},
                          {"af", false, " 0: 2: 8: 16: "},
                          {"aa", false, " 0: 4: q: 8: "},
                          {"ps", true, versions},
                          {"vs", true, " 0.0:0 1.1:1 2.0:2 3.0:3 "}};
  FakeMachine machine;
  for (const Table& table : tables) {
    const std::string text = machine.Files().ReadBytes("DATA/" + table.name + ".dat").value();
    core::FieldReader fields(text);
    std::string keys = " ";
    while (!fields.AtEnd()) {
      const std::string key = *fields.Next();
      const std::string value = fields.Next().value_or("none");
      const std::string extra = table.has_extra ? fields.Next().value_or("none") : "";
      EXPECT_EQ(key.find_first_not_of("0123456789ABCDEF"), key.npos) << table.name << key;
      EXPECT_TRUE(key.size() == 2 || (table.name == "mt" && key.size() == 4)) << key;
      EXPECT_EQ(keys.find(" " + key + " "), keys.npos) << table.name << " " << key;
      EXPECT_NE(table.values.find(" " + value + ":" + extra + " "), table.values.npos)
          << table.name << " " << key << " " << value << " " << extra;
      keys += key + " ";
    }
    EXPECT_NE(keys.find(" 09 "), keys.npos) << table.name;
  }
}

}  // namespace
}  // namespace kestrune::detect
