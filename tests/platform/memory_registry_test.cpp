#include "platform/memory_registry.h"

#include <gtest/gtest.h>

#include "platform/open_key.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

constexpr RegRoot kMachine = RegRoot::kLocalMachine;

void Write(RegistryApi& registry, std::string_view path, std::string_view name,
           std::string_view text) {
  OpenKey key(registry);
  ASSERT_EQ(key.Create(kMachine, path), RegStatus::kSuccess);
  ASSERT_EQ(registry.SetValue(key.Handle(), name, RegType::kSz, TextData(text)),
            RegStatus::kSuccess);
}

void Delete(RegistryApi& registry, std::string_view path, std::string_view name) {
  OpenKey key(registry);
  ASSERT_EQ(key.Open(kMachine, path), RegStatus::kSuccess);
  ASSERT_EQ(registry.DeleteValue(key.Handle(), name), RegStatus::kSuccess);
}

/// What stands in a key: "NAME=TEXT " for a value, "NAME{...} " for a key.
std::string Tree(RegistryApi& registry, const std::string& path) {
  OpenKey key(registry);
  if (key.Open(kMachine, path) != RegStatus::kSuccess) return "(no key)";
  std::vector<StoredValue> values;
  std::vector<std::string> names;
  EXPECT_EQ(registry.ListValues(key.Handle(), values), RegStatus::kSuccess);
  EXPECT_EQ(registry.ListKeys(key.Handle(), names), RegStatus::kSuccess);
  std::string tree;
  for (const StoredValue& value : values) {
    tree += value.name + "=" + TextOf(value.type, value.data).value_or("?") + " ";
  }
  for (const std::string& name : names) {
    tree += name + "{" + Tree(registry, path.empty() ? name : path + "\\" + name) + "} ";
  }
  return tree;
}

/// Counts what is changed in it.
class CountingRegistry : public MemoryRegistry {
 public:
  RegStatus CreateKey(RegRoot root, std::string_view path, RegHandle& key) override {
    ++changes;
    return MemoryRegistry::CreateKey(root, path, key);
  }
  RegStatus SetValue(RegHandle key, std::string_view name, RegType type,
                     std::span<const std::byte> data) override {
    ++changes;
    return MemoryRegistry::SetValue(key, name, type, data);
  }
  RegStatus DeleteValue(RegHandle key, std::string_view name) override {
    ++changes;
    return MemoryRegistry::DeleteValue(key, name);
  }
  RegStatus SetDefaultValue(RegRoot root, std::string_view path, std::string_view text) override {
    ++changes;
    return MemoryRegistry::SetDefaultValue(root, path, text);
  }
  RegStatus DeleteKey(RegRoot root, std::string_view path) override {
    ++changes;
    return MemoryRegistry::DeleteKey(root, path);
  }
  RegStatus BeginChanges() override {
    ++changes;
    return MemoryRegistry::BeginChanges();
  }
  /// Unless told otherwise every key can be opened.
  RegStatus OpenKey(RegRoot root, std::string_view path, RegHandle& key) override {
    if (path == locked) return RegStatus::kAccessDenied;
    return MemoryRegistry::OpenKey(root, path, key);
  }

  int changes = 0;
  std::string locked = "?";
};

class OverlayTest : public testing::Test {
 protected:
  OverlayTest() {
    Write(below_, "Both\\Deep", "d", "1");
    Write(below_, "Both", "Name", "1");
    Write(below_, "Both", "kept", "2");
    Write(below_, "Gone\\Deep\\Deeper", "g", "1");
    below_.changes = 0;
  }
  ~OverlayTest() override {
    EXPECT_EQ(Tree(below_, ""), kBelow);
    EXPECT_EQ(below_.changes, 0);
  }

  static constexpr const char* kBelow =
      "Both{kept=2 Name=1 Deep{d=1 } } Gone{Deep{Deeper{g=1 } } } ";
  CountingRegistry below_;
  OverlayRegistry overlay_{below_};
};

TEST_F(OverlayTest, WhatWasNeverChangedIsReadBelow) {
  EXPECT_EQ(Tree(overlay_, "both\\DEEP"), "d=1 ");
  EXPECT_EQ(Tree(overlay_, ""), kBelow);
  EXPECT_EQ(Tree(overlay_, "None\\Deep"), "(no key)");
}

TEST_F(OverlayTest, ChangesAreSeenAndStayAbove) {
  Write(overlay_, "BOTH", "NAME", "new");
  Write(overlay_, "Both\\Deep\\New\\Newer", "n", "3");
  Delete(overlay_, "both", "KEPT");
  EXPECT_EQ(overlay_.SetDefaultValue(kMachine, "Gone\\Deep", "text"), RegStatus::kSuccess);
  EXPECT_EQ(Tree(overlay_, ""),
            "Both{Name=new Deep{d=1 New{Newer{n=3 } } } } Gone{Deep{=text Deeper{g=1 } } } ");
}

TEST_F(OverlayTest, AKeyThatIsDeletedAndMadeAgainShowsNothingOfWhatIsBelow) {
  EXPECT_EQ(overlay_.DeleteKey(kMachine, "gone"), RegStatus::kSuccess);
  EXPECT_EQ(overlay_.DeleteKey(kMachine, "Gone"), RegStatus::kNotFound);
  EXPECT_EQ(Tree(overlay_, "Gone\\Deep"), "(no key)");
  Write(overlay_, "GONE\\Deep", "again", "1");
  EXPECT_EQ(Tree(overlay_, ""), "Both{kept=2 Name=1 Deep{d=1 } } GONE{Deep{again=1 } } ");
}

TEST_F(OverlayTest, AGroupThatIsTakenBackShowsWhatIsBelowAgain) {
  {
    const ChangeScope group(overlay_);
    EXPECT_EQ(overlay_.DeleteKey(kMachine, "Gone"), RegStatus::kSuccess);
    Write(overlay_, "Both", "Name", "new");
    EXPECT_EQ(Tree(overlay_, ""), "Both{kept=2 Name=new Deep{d=1 } } ");
  }
  EXPECT_EQ(Tree(overlay_, ""), kBelow);
}

TEST_F(OverlayTest, AKeyThatCannotBeReadBelowIsRefusedAndItsNeighboursAreNot) {
  below_.locked = "Both\\Deep";
  RegHandle key = 0;
  EXPECT_EQ(overlay_.OpenKey(kMachine, "Both\\Deep", key), RegStatus::kAccessDenied);
  EXPECT_EQ(overlay_.CreateKey(kMachine, "Both\\Deep\\New", key), RegStatus::kAccessDenied);
  EXPECT_EQ(Tree(overlay_, "Gone"), "Deep{Deeper{g=1 } } ");
  below_.locked = "?";
  EXPECT_EQ(Tree(overlay_, "Both"), "kept=2 Name=1 Deep{d=1 } ");
}

TEST(MemoryRegistryTest, WhatTheMachineRemembersIsNoValueAndIsTakenBackWithItsGroup) {
  MemoryRegistry registry;
  EXPECT_EQ(registry.MachineState("homer"), std::nullopt);
  EXPECT_EQ(registry.SetMachineState("homer", "1"), RegStatus::kSuccess);
  {
    const ChangeScope group(registry);
    EXPECT_EQ(registry.SetMachineState("homer", "2"), RegStatus::kSuccess);
    EXPECT_EQ(registry.MachineState("homer"), "2");
  }
  EXPECT_EQ(registry.MachineState("homer"), "1");
  EXPECT_EQ(Tree(registry, ""), "");
}

TEST(MemoryRegistryTest, APathOfVeryManyLevelsIsOnlyLookedFor) {
  MemoryRegistry registry;
  std::string path = "a";
  for (int level = 0; level < 32768; ++level) path += "\\a";
  RegHandle key = 0;
  EXPECT_EQ(registry.OpenKey(kMachine, path, key), RegStatus::kNotFound);
  EXPECT_EQ(registry.CreateKey(kMachine, path, key), RegStatus::kInvalidParameter);
}

}  // namespace
}  // namespace kestrune::platform
