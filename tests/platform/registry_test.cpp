// What every registry must do, whatever stands behind it.

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/portable/hardware_keys.h"
#include "platform/portable/store_registry.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

constexpr RegRoot kMachine = RegRoot::kLocalMachine;

std::span<const std::byte> Bytes(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

/// A registry with everything that it stands on.
struct Subject {
  TempFolder folder;
  std::unique_ptr<Store> store;
  std::unique_ptr<StoreRegistry> over_store;
  std::unique_ptr<HardwareKeys> over_hardware;
  RegistryApi* registry = nullptr;
};

struct Kind {
  const char* name;
  bool dry_run;
  bool behind_hardware;
};

class RegistryTest : public testing::TestWithParam<Kind> {
 protected:
  RegistryTest() {
    auto store = Store::Open({.path = subject_.folder / "a.store", .dry_run = GetParam().dry_run});
    EXPECT_TRUE(store.Ok());
    subject_.store = std::move(store).Value();
    subject_.over_store = std::make_unique<StoreRegistry>(*subject_.store);
    subject_.over_hardware =
        std::make_unique<HardwareKeys>(*subject_.over_store, [] { return DescribedProcessor(); });
    subject_.registry = subject_.over_store.get();
    if (GetParam().behind_hardware) subject_.registry = subject_.over_hardware.get();
  }

  RegistryApi& Registry() { return *subject_.registry; }

  RegHandle Open(std::string_view path) {
    RegHandle key = 0;
    Registry().OpenKey(kMachine, path, key);
    return key;
  }
  RegHandle Create(std::string_view path) {
    RegHandle key = 0;
    EXPECT_EQ(Registry().CreateKey(kMachine, path, key), RegStatus::kSuccess) << path;
    return key;
  }
  RegStatus Set(RegHandle key, std::string_view name, std::string_view data) {
    return Registry().SetValue(key, name, RegType::kSz, Bytes(data));
  }
  std::string Get(RegHandle key, std::string_view name) {
    RegType type{};
    std::size_t size = 0;
    if (Registry().QueryValue(key, name, type, size, {}) != RegStatus::kSuccess) return "(none)";
    std::string data(size, '\0');
    std::byte nothing{};
    auto room = std::as_writable_bytes(std::span(data));
    if (room.empty()) room = {&nothing, 0};
    EXPECT_EQ(Registry().QueryValue(key, name, type, size, room), RegStatus::kSuccess);
    return data;
  }

 private:
  Subject subject_;
};

INSTANTIATE_TEST_SUITE_P(All, RegistryTest,
                         testing::Values(Kind{"Store", false, false}, Kind{"Copy", true, false},
                                         Kind{"BehindHardware", false, true}),
                         [](const auto& kind) { return kind.param.name; });

TEST_P(RegistryTest, PathsAreMatchedWithoutCaseAndOddOnesOpenNothing) {
  Create("Software\\Größe\\Ключ");
  struct Case {
    const char* path;
    RegStatus status;
  };
  for (const auto& [path, status] : {
           Case{"", RegStatus::kSuccess},
           Case{"SOFTWARE", RegStatus::kSuccess},
           Case{"software\\GRÖßE", RegStatus::kSuccess},
           Case{"software\\größe\\КЛЮЧ\\", RegStatus::kSuccess},
           Case{"software\\grösse", RegStatus::kNotFound},
           Case{"software\\größe\\Клю", RegStatus::kNotFound},
           Case{"software/größe", RegStatus::kNotFound},
           Case{"\\software", RegStatus::kBadPath},
           Case{"\\", RegStatus::kBadPath},
           Case{"software\\\\größe", RegStatus::kBadPath},
           Case{"software\\\\", RegStatus::kBadPath},
       }) {
    RegHandle key = 77;
    EXPECT_EQ(Registry().OpenKey(kMachine, path, key), status) << path;
    EXPECT_EQ(key == 77, status != RegStatus::kSuccess) << path;
  }
  RegHandle key = 0;
  EXPECT_EQ(Registry().CreateKey(kMachine, "\\New", key), RegStatus::kBadPath);
  EXPECT_EQ(Registry().OpenKey(RegRoot::kCurrentUser, "Software", key), RegStatus::kNotFound);
  EXPECT_EQ(Registry().OpenKey(RegRoot{0x80000006u}, "", key), RegStatus::kInvalidHandle);
}

TEST_P(RegistryTest, CreatingMakesEveryLevelAndOpeningNone) {
  EXPECT_EQ(Open("A\\B\\C"), 0u);
  EXPECT_EQ(Open("A"), 0u);
  const RegHandle key = Create("A\\B\\C");
  EXPECT_EQ(Set(key, "n", "1"), RegStatus::kSuccess);
  EXPECT_NE(Open("a\\b"), 0u);
  EXPECT_EQ(Get(Create("a\\B\\c\\"), "N"), "1");
}

TEST_P(RegistryTest, ValuesKeepEveryTypeSizeAndName) {
  const RegHandle key = Create("K");
  struct Case {
    std::string name;
    RegType type;
    std::string data;
  };
  const std::string with_nul("a\0b", 3);
  const std::vector<Case> cases = {
      {"", RegType::kSz, std::string(1, '\0')},
      {"none", RegType::kNone, ""},
      {"empty", RegType::kSz, ""},
      {"Ünïcode", RegType::kExpandSz, "x"},
      {with_nul, RegType{0xFFFFFFFF}, with_nul},
      {"large", RegType::kBinary, std::string(70000, 7)},
      {"a\\b", RegType::kDword, "1234567"},
  };
  for (const Case& c : cases) {
    ASSERT_EQ(Registry().SetValue(key, c.name, c.type, Bytes(c.data)), RegStatus::kSuccess);
  }
  for (const Case& c : cases) {
    RegType type{};
    std::size_t size = 99;
    ASSERT_EQ(Registry().QueryValue(key, c.name, type, size, {}), RegStatus::kSuccess) << c.name;
    EXPECT_EQ(type, c.type) << c.name;
    EXPECT_EQ(size, c.data.size()) << c.name;
    EXPECT_EQ(Get(key, c.name), c.data) << c.name;
  }
  EXPECT_EQ(Get(key, "ÜNÏCODE"), "x");
  EXPECT_EQ(Get(key, "A"), "(none)");
}

TEST_P(RegistryTest, ABufferTooSmallTellsTheSizeAndIsLeftAlone) {
  const RegHandle key = Create("K");
  ASSERT_EQ(Set(key, "v", "12345678"), RegStatus::kSuccess);
  RegType type{};
  std::size_t size = 0;
  std::byte room[8] = {};
  EXPECT_EQ(Registry().QueryValue(key, "v", type, size, std::span(room, 6)), RegStatus::kMoreData);
  EXPECT_EQ(size, 8u);
  EXPECT_EQ(type, RegType::kSz);
  EXPECT_EQ(room[0], std::byte{0});
  EXPECT_EQ(Registry().QueryValue(key, "v", type, size, room), RegStatus::kSuccess);
  EXPECT_EQ(room[7], std::byte{'8'});

  size = 99;
  EXPECT_EQ(Registry().QueryValue(key, "w", type, size, room), RegStatus::kNotFound);
  EXPECT_EQ(size, 99u);
}

TEST_P(RegistryTest, ARootHoldsNoValues) {
  const RegHandle root = Open("");
  EXPECT_EQ(Set(root, "v", "1"), RegStatus::kAccessDenied);
  EXPECT_EQ(Registry().DeleteValue(root, "v"), RegStatus::kAccessDenied);
  EXPECT_EQ(Get(root, ""), "(none)");
}

TEST_P(RegistryTest, DeletingTakesTheValueWhateverItsCase) {
  const RegHandle key = Create("K");
  Set(key, "Wert-Ä", "1");
  EXPECT_EQ(Registry().DeleteValue(key, "wert-ä"), RegStatus::kSuccess);
  EXPECT_EQ(Get(key, "Wert-Ä"), "(none)");
  EXPECT_EQ(Registry().DeleteValue(key, "wert-ä"), RegStatus::kNotFound);
}

TEST_P(RegistryTest, AClosedOrUnknownHandleIsRefused) {
  const RegHandle key = Create("K");
  Registry().CloseKey(key);
  for (const RegHandle handle : {key, RegHandle{0}, RegHandle{12345}}) {
    EXPECT_EQ(Set(handle, "v", "1"), RegStatus::kInvalidHandle);
    EXPECT_EQ(Registry().DeleteValue(handle, "v"), RegStatus::kInvalidHandle);
    Registry().CloseKey(handle);
  }
  const RegHandle first = Open("K");
  const RegHandle second = Open("K");
  EXPECT_NE(first, second);
  Registry().CloseKey(first);
  EXPECT_EQ(Set(second, "v", "1"), RegStatus::kSuccess);
}

TEST_P(RegistryTest, AChangeInsideAReadScopeIsSeenAtOnce) {
  const RegHandle key = Create("K");
  Set(key, "v", "1");
  ReadScope outer(Registry());
  {
    ReadScope inner(Registry());
    EXPECT_EQ(Get(key, "v"), "1");
    EXPECT_EQ(Set(key, "v", "2"), RegStatus::kSuccess);
    EXPECT_EQ(Get(key, "v"), "2");
  }
  Create("K\\New");
  EXPECT_NE(Open("k\\new"), 0u);
}

TEST(HardwareKeysTest, ProcessorsCanBeReadAndNotWritten) {
  TempFolder folder;
  auto store = Store::Open({.path = folder / "a.store"});
  ASSERT_TRUE(store.Ok());
  StoreRegistry behind(*store.Value());
  DescribedProcessor processor;
  processor.count = 2;
  processor.mhz = 2400;
  processor.vendor = "GenuineIntel";
  HardwareKeys registry(behind, [&] { return processor; });

  struct Case {
    const char* path;
    RegStatus opened;
    RegStatus created;
  };
  for (const auto& [path, opened, created] : {
           Case{"Hardware\\Description", RegStatus::kSuccess, RegStatus::kSuccess},
           Case{"HARDWARE\\DESCRIPTION\\System\\CentralProcessor", RegStatus::kSuccess,
                RegStatus::kSuccess},
           Case{"hardware\\description\\system\\centralprocessor\\1\\", RegStatus::kSuccess,
                RegStatus::kSuccess},
           Case{"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\2", RegStatus::kNotFound,
                RegStatus::kAccessDenied},
           Case{"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0\\x", RegStatus::kNotFound,
                RegStatus::kAccessDenied},
           Case{"HARDWARE\\DESCRIPTION\\System\\CentralProcessors", RegStatus::kNotFound,
                RegStatus::kSuccess},
           Case{"HARDWARE2", RegStatus::kNotFound, RegStatus::kSuccess},
       }) {
    RegHandle key = 0;
    EXPECT_EQ(registry.OpenKey(kMachine, path, key), opened) << path;
    EXPECT_EQ(registry.CreateKey(kMachine, path, key), created) << path;
  }

  RegHandle key = 0;
  registry.OpenKey(kMachine, "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\1", key);
  RegType type{};
  std::size_t size = 0;
  std::int32_t mhz = 0;
  EXPECT_EQ(
      registry.QueryValue(key, "~mhz", type, size, std::as_writable_bytes(std::span(&mhz, 1))),
      RegStatus::kSuccess);
  EXPECT_EQ(mhz, 2400);
  EXPECT_EQ(type, RegType::kDword);
  EXPECT_EQ(registry.QueryValue(key, "VendorIdentifier", type, size, {}), RegStatus::kSuccess);
  EXPECT_EQ(size, sizeof("GenuineIntel"));
  EXPECT_EQ(registry.QueryValue(key, "Identifier", type, size, {}), RegStatus::kNotFound);
  EXPECT_EQ(registry.SetValue(key, "~MHz", RegType::kDword, {}), RegStatus::kAccessDenied);
  EXPECT_EQ(registry.DeleteValue(key, "~MHz"), RegStatus::kAccessDenied);
  EXPECT_FALSE(store.Value()->Values(kMachine, "HARDWARE\\DESCRIPTION\\System\\CentralProcessor"));
}

}  // namespace
}  // namespace kestrune::platform::portable
