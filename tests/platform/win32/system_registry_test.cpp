#include <windows.h>
#include <gtest/gtest.h>

#include "platform/win32/registry.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {
namespace {

constexpr const char* kKey = "Software\\KestruneTests\\System";
constexpr const char* kVolatileKey = "Software\\KestruneTests\\Volatile";

struct SystemRegistryTest : testing::Test {
  ~SystemRegistryTest() override {
    registry.DeleteKey(RegRoot::kCurrentUser, "Software\\KestruneTests");
  }

  CodePages pages{SystemCodePage()};
  SystemRegistry registry{pages};
};

/// Nothing that lasts can stand below what doesn't.
TEST_F(SystemRegistryTest, ARefusedChangeIsToldOnceAndNotWhenNobodyAskedForIt) {
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, kVolatileKey, 0, nullptr, REG_OPTION_VOLATILE,
                            KEY_ALL_ACCESS, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(key);
  const auto create = [this](const std::string& name) {
    RegHandle handle = 0;
    return registry.CreateKey(RegRoot::kCurrentUser, kVolatileKey + ("\\" + name), handle);
  };
  {
    const UnaskedScope unasked(registry, HeldUp::kPassedOver);
    if (create("unasked") == RegStatus::kSuccess) GTEST_SKIP() << "this system refuses nothing";
  }
  EXPECT_EQ(registry.FirstFailure(), std::nullopt);
  EXPECT_EQ(create("first"), static_cast<RegStatus>(ERROR_CHILD_MUST_BE_VOLATILE));
  create("second");
  const std::string failure = registry.FirstFailure().value_or("");
  EXPECT_TRUE(
      failure.starts_with("The registry can't be changed at HKCU\\Software\\KestruneTests\\"
                          "Volatile\\first: "))
      << failure;
  EXPECT_TRUE(failure.ends_with(".") && !failure.ends_with("..")) << failure;
}

TEST_F(SystemRegistryTest, WhatIsMissingIsNoFailure) {
  RegHandle handle = 0;
  EXPECT_EQ(registry.OpenKey(RegRoot::kCurrentUser, kKey, handle), RegStatus::kNotFound);
  EXPECT_EQ(registry.DeleteKey(RegRoot::kCurrentUser, kKey), RegStatus::kNotFound);
  EXPECT_EQ(registry.FirstFailure(), std::nullopt);
}

/// Another program's text with a byte of no character comes and goes without loss.
TEST_F(SystemRegistryTest, AByteThatTheCodePageLacksIsKept) {
  if (SystemCodePage() != 1252) GTEST_SKIP() << "in code page " << SystemCodePage();
  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, kKey, &key), ERROR_SUCCESS);
  const std::string stored("a\x81z\xE9\0", 5);
  RegSetValueExA(key, "n", 0, REG_SZ, reinterpret_cast<const BYTE*>(stored.data()), 5);

  RegHandle handle = 0;
  ASSERT_EQ(registry.OpenKey(RegRoot::kCurrentUser, kKey, handle), RegStatus::kSuccess);
  std::vector<StoredValue> values;
  registry.ListValues(handle, values);
  ASSERT_EQ(values.size(), 1u);
  const std::string text(reinterpret_cast<const char*>(values[0].data.data()),
                         values[0].data.size());
  EXPECT_EQ(text, std::string("a\xEF\x9E\x81z\xC3\xA9\0", 8));

  registry.SetValue(handle, "again", RegType::kSz, values[0].data);
  registry.CloseKey(handle);
  char bytes[16] = {};
  DWORD size = sizeof bytes;
  RegQueryValueExA(key, "again", nullptr, nullptr, reinterpret_cast<BYTE*>(bytes), &size);
  RegCloseKey(key);
  EXPECT_EQ(std::string(bytes, size), stored);
}

}  // namespace
}  // namespace kestrune::platform::win32
