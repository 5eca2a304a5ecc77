#include "platform/portable/hardware_keys.h"

#include <gtest/gtest.h>

#include "platform/open_key.h"
#include "platform/portable/store_registry.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

constexpr RegRoot kMachine = RegRoot::kLocalMachine;

/// The names below a key and of its values.
std::string Listed(RegistryApi& registry, std::string_view path) {
  OpenKey key(registry);
  std::vector<std::string> names;
  std::vector<StoredValue> values;
  if (key.Open(kMachine, path) != RegStatus::kSuccess ||
      registry.ListKeys(key.Handle(), names) != RegStatus::kSuccess ||
      registry.ListValues(key.Handle(), values) != RegStatus::kSuccess) {
    return "(no list)";
  }
  std::string list;
  for (const std::string& name : names) list += name + "\\ ";
  for (const StoredValue& value : values) list += value.name + " ";
  return list;
}

TEST(HardwareKeysTest, ProcessorsAreListedAmongWhatTheRegistryHolds) {
  TempFolder folder;
  auto store = Store::Open({.path = folder / "a.store"});
  ASSERT_TRUE(store.Ok());
  StoreRegistry behind(*store.Value());
  DescribedProcessor processor;
  processor.count = 2;
  processor.mhz = 2400;
  processor.vendor = "GenuineIntel";
  HardwareKeys registry(behind, [&] { return processor; });
  EXPECT_EQ(Listed(registry, ""), "HARDWARE\\ ");
  EXPECT_EQ(Listed(registry, "hardware"), "DESCRIPTION\\ ");
  ASSERT_EQ(behind.SetDefaultValue(kMachine, "A", ""), RegStatus::kSuccess);
  ASSERT_EQ(behind.SetDefaultValue(kMachine, "Hardware\\DEVICEMAP", ""), RegStatus::kSuccess);
  ASSERT_EQ(behind.SetDefaultValue(kMachine, "Z", ""), RegStatus::kSuccess);
  EXPECT_EQ(Listed(registry, ""), "A\\ Hardware\\ Z\\ ");
  EXPECT_EQ(Listed(registry, "HARDWARE\\"), "DESCRIPTION\\ DEVICEMAP\\ ");
  EXPECT_EQ(Listed(registry, "HARDWARE\\description"), "System\\ ");
  EXPECT_EQ(Listed(registry, "HARDWARE\\DESCRIPTION\\System"), "CentralProcessor\\ ");
  const std::string processors = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor";
  EXPECT_EQ(Listed(registry, processors), "0\\ 1\\ ");
  EXPECT_EQ(Listed(registry, processors + "\\1"), "VendorIdentifier ~MHz ");
  EXPECT_EQ(Listed(registry, "A"), " ");
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
  processor.names = {"P4"};
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
                RegStatus::kAccessDenied},
           Case{"HARDWARE\\DESCRIPTIONS", RegStatus::kNotFound, RegStatus::kSuccess},
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
  EXPECT_EQ(registry.QueryValue(key, "ProcessorNameString", type, size, {}), RegStatus::kSuccess);
  EXPECT_EQ(size, 1u) << "only the first is named";
  EXPECT_EQ(registry.SetValue(key, "~MHz", RegType::kDword, {}), RegStatus::kAccessDenied);
  EXPECT_EQ(registry.DeleteValue(key, "~MHz"), RegStatus::kAccessDenied);
  const std::string processors = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor";
  EXPECT_EQ(registry.SetDefaultValue(kMachine, processors, "x"), RegStatus::kAccessDenied);
  EXPECT_EQ(registry.DeleteKey(kMachine, processors + "\\0"), RegStatus::kAccessDenied);
  EXPECT_EQ(registry.DeleteKey(kMachine, processors + "\\2"), RegStatus::kNotFound);
  EXPECT_EQ(registry.DeleteKey(kMachine, "Hardware"), RegStatus::kAccessDenied);
  RegHandle description = 0;
  ASSERT_EQ(behind.CreateKey(kMachine, "HARDWARE\\DESCRIPTION\\System", description),
            RegStatus::kSuccess);
  ASSERT_EQ(registry.OpenKey(kMachine, "HARDWARE\\DESCRIPTION\\System", description),
            RegStatus::kSuccess);
  EXPECT_EQ(registry.SetValue(description, "x", RegType::kSz, {}), RegStatus::kAccessDenied);
  EXPECT_EQ(registry.DeleteKey(kMachine, "HARDWARE\\DESCRIPTION\\System"),
            RegStatus::kAccessDenied);
  EXPECT_EQ(behind.OpenKey(kMachine, processors, key), RegStatus::kNotFound);
}

}  // namespace
}  // namespace kestrune::platform::portable
