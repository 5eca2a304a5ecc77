// What the system says of itself, of its displays and of its files.

#include "platform/win32/system.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "platform/memory_registry.h"
#include "platform/win32/card_names.h"
#include "platform/win32/display.h"
#include "platform/win32/text.h"
#include "platform/win32/versions.h"

namespace kestrune::platform::win32 {
namespace {

struct SystemTest : testing::Test {
  CodePages pages{SystemCodePage()};
  SystemState system{pages};
  SystemVersions versions{pages};
  MemoryRegistry registry;
  SystemDisplays displays{registry, pages, true};
};

TEST_F(SystemTest, TellsItsVersionAndThoseOfItsFiles) {
  const OsVersion version = versions.SystemVersion();
  EXPECT_EQ(version.platform, IsNt() ? kPlatformNt : kPlatform9x);
  EXPECT_GE(version.major, 4);
  const std::string text = versions.FileVersionText("kernel32.dll").value_or("");
  EXPECT_TRUE(!text.empty() && text[0] >= '0' && text[0] <= '9') << text;
  for (const char* name : {"no such file.dll", "", "drivers", "..\\win.ini", "\xC4\x81.dll"}) {
    EXPECT_EQ(versions.FileVersionText(name), std::nullopt) << name;
  }
}

TEST_F(SystemTest, CountsItsProcessorsAndItsMemory) {
  EXPECT_GE(system.Processors().count, 1);
  const MemoryStatus memory = system.Memory();
  EXPECT_GT(memory.available, 0);
  EXPECT_GT(memory.total, memory.available);
}

TEST_F(SystemTest, TimeGoesByInPauses) {
  const std::int64_t start = system.Milliseconds();
  system.Pause(50);
  const std::int64_t length = system.Milliseconds() - start;
  EXPECT_GE(length, 30);  // it counts in steps
  EXPECT_LT(length, 10000);
}

TEST_F(SystemTest, ListsThisProcessByTheNameOfItsFile) {
  const auto processes = system.Processes();
  if (!processes) GTEST_SKIP() << "this system tells no processes";
  const auto own = std::find_if(processes->begin(), processes->end(), [](const auto& each) {
    return each.id == static_cast<int>(GetCurrentProcessId());
  });
  ASSERT_NE(own, processes->end());
  EXPECT_EQ(own->name, "platform_test.exe");
  EXPECT_GE(own->threads, 1);
}

TEST_F(SystemTest, ALoadIsAPercentageOrNothing) {
  const auto counters = system.OpenLoadCounters();
  for (int i = 0; i < 3; ++i) {
    for (const auto& load : counters->Collect()) {
      if (!load) continue;
      EXPECT_GE(*load, 0);
      EXPECT_LE(*load, 100);
    }
    system.Pause(20);
  }
}

TEST_F(SystemTest, DisplaysHaveModesAndADryRunChangesNone) {
  for (int i = 0; i < 3; ++i) displays.DeviceAt(i);
  EXPECT_EQ(displays.DeviceAt(-1), std::nullopt);
  EXPECT_EQ(displays.DeviceAt(1000), std::nullopt);
  EXPECT_EQ(displays.ModeAt(-1), std::nullopt);
  EXPECT_EQ(displays.ModeAt(100000), std::nullopt);
  if (const auto mode = displays.ModeAt(0)) {
    EXPECT_GT(mode->width, 0);
    EXPECT_GT(mode->height, 0);
    EXPECT_GT(mode->depth, 0);
  }
  EXPECT_FALSE(displays.MustConfirm());
  EXPECT_EQ(displays.ChangeMode({.width = 1, .height = 1}), ModeChange::kDone);
}

TEST_F(SystemTest, TheKeyOfNt4sDriverStandsForItsCard) {
  const auto store = [this](RegType type, const std::string& text) {
    RegHandle key = 0;
    registry.CreateKey(RegRoot::kLocalMachine, "System\\CurrentControlSet\\Services\\nv4\\Device0",
                       key);
    registry.SetValue(key, "Device Description", type, std::as_bytes(std::span(text)));
    registry.CloseKey(key);
  };
  EXPECT_FALSE(DriverDevice(registry));
  store(RegType::kSz, "Another maker's card");
  EXPECT_FALSE(DriverDevice(registry));
  store(RegType::kSz, std::string("NVIDIA RIVA TNT2/TNT2 Pro\0x", 27));
  const auto device = DriverDevice(registry);
  ASSERT_TRUE(device);
  EXPECT_EQ(device->description, "NVIDIA RIVA TNT2/TNT2 Pro");
  EXPECT_EQ(device->hardware_id, "PCI\\VEN_10DE&DEV_0028&SUBSYS_00000000&REV_00");
  EXPECT_EQ(device->driver_key,
            R"(\Registry\Machine\System\CurrentControlSet\Services\nv4\Device0)");
}

TEST(CardNameTest, TellsACardByTheNameInItsDriversKey) {
  struct Case {
    const char* name;
    std::optional<unsigned> device;
  };
  const Case cases[] = {{"NVIDIA RIVA TNT2/TNT2 Pro", 0x0028},
                        {"nvidia riva tnt2 ultra", 0x0029},
                        {"NVIDIA GeForce2 MX/MX 400", 0x0110},
                        {"GeForce2 MX/MX 400", 0x0110},
                        {"NVIDIA", std::nullopt},
                        {"Riva", std::nullopt},
                        {"Standard VGA", std::nullopt},
                        {"", std::nullopt}};
  for (const Case& each : cases) EXPECT_EQ(DeviceNamed(each.name), each.device) << each.name;
}

}  // namespace
}  // namespace kestrune::platform::win32
