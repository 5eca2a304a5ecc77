// What every registry must do, whatever stands behind it.

#include <gtest/gtest.h>

#include "platform/registry_kinds.h"
#include "platform/value_text.h"

namespace kestrune::platform {
namespace {

constexpr RegRoot kMachine = RegRoot::kLocalMachine;

std::span<const std::byte> Bytes(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

class RegistryTest : public testing::TestWithParam<RegistryKind> {
 protected:
  RegistryApi& Registry() { return subject_->Registry(); }
  bool HoldsTextsWithoutNul() const { return subject_->HoldsTextsWithoutNul(); }

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
    return Registry().SetValue(key, name, RegType::kBinary, Bytes(data));
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
  /// Everything below a key as it is listed: "NAME=DATA " for a value, "NAME{...} " for a key.
  std::string Tree(RegHandle key) {
    std::vector<StoredValue> values;
    std::vector<std::string> names;
    EXPECT_EQ(Registry().ListValues(key, values), RegStatus::kSuccess);
    EXPECT_EQ(Registry().ListKeys(key, names), RegStatus::kSuccess);
    std::string tree;
    for (const StoredValue& value : values) {
      tree += ValueNameText(value.name) + "=";
      for (const std::byte byte : value.data) {
        if (byte != std::byte{0}) tree += std::to_integer<char>(byte);
      }
      tree += ' ';
    }
    for (const std::string& name : names) {
      paths_.push_back(paths_.back().empty() ? name : paths_.back() + "\\" + name);
      const RegHandle below = Open(paths_.back());
      tree += name + "{" + Tree(below) + "} ";
      Registry().CloseKey(below);
      paths_.pop_back();
    }
    return tree;
  }
  std::string Tree(const std::string& path) {
    const RegHandle key = Open(path);
    if (key == 0) return "(no key)";
    paths_ = {path};
    std::string tree = Tree(key);
    Registry().CloseKey(key);
    return tree;
  }
  /// What each operation on an open key gives, one after the other.
  std::vector<RegStatus> Answers(RegHandle key) {
    RegType type{};
    std::size_t size = 0;
    std::vector<std::string> names = {"kept"};
    std::vector<StoredValue> values(1);
    std::vector<RegStatus> answers = {Registry().QueryValue(key, "v", type, size, {}),
                                      Set(key, "v", "1"), Registry().DeleteValue(key, "v"),
                                      Registry().ListKeys(key, names),
                                      Registry().ListValues(key, values)};
    EXPECT_EQ(names.size() + values.size(), 2u) << "a call that fails leaves its outputs alone";
    return answers;
  }

 private:
  std::unique_ptr<RegistryUnderTest> subject_ = GetParam().make();
  std::vector<std::string> paths_;
};

const std::vector<RegStatus> kAllDeleted(5, RegStatus::kKeyDeleted);
const std::vector<RegStatus> kAllInvalid(5, RegStatus::kInvalidHandle);

INSTANTIATE_TEST_SUITE_P(All, RegistryTest, testing::ValuesIn(RegistryKinds()),
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
      {"odd type", RegType{0xFFFFFFFF}, with_nul},
      {"64 KB", RegType::kBinary, std::string(65536, '\xFF')},
      {"more", RegType::kBinary, std::string(70000, 7)},
      {"a\\b", RegType::kDword, "1234567"},
      {"no number", RegType::kDword, ""},
      {"text", RegType::kSz, std::string("text\0", 5)},
      {"text without NUL", RegType::kSz, "text"},
      {"two texts", RegType{7}, std::string("a\0b\0\0", 5)},
      {" ", RegType::kBinary, std::string(1, '\0')},
      {"\x01\t", RegType::kBinary, "\x80"},
      {"byte of no code page \xEF\x9E\x81", RegType::kSz, std::string("\xEF\x9E\x8D\0", 4)},
  };
  for (const Case& c : cases) {
    ASSERT_EQ(Registry().SetValue(key, c.name, c.type, Bytes(c.data)), RegStatus::kSuccess);
  }
  for (const Case& c : cases) {
    RegType type{};
    std::size_t size = 99;
    ASSERT_EQ(Registry().QueryValue(key, c.name, type, size, {}), RegStatus::kSuccess) << c.name;
    EXPECT_EQ(type, c.type) << c.name;
    const bool gets_nul =
        !HoldsTextsWithoutNul() && c.type == RegType::kSz && !c.data.ends_with('\0');
    const std::string data = c.data + std::string(gets_nul ? 1 : 0, '\0');
    EXPECT_EQ(size, data.size()) << c.name;
    EXPECT_EQ(Get(key, c.name), data) << c.name;
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
  EXPECT_EQ(type, RegType::kBinary);
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

TEST_P(RegistryTest, WhatWindowsWouldNotTakeIsRefused) {
  const std::string name(255, 'k');
  std::string deep = "d";
  for (int i = 1; i < 512; ++i) deep += "\\d";
  const std::string nul(1, '\0');
  RegHandle key = 0;
  for (const std::string& path : {name + "k", "a\\" + name + "k\\b", deep + "\\d", "a" + nul}) {
    EXPECT_EQ(Registry().CreateKey(kMachine, path, key), RegStatus::kInvalidParameter);
    EXPECT_EQ(Registry().SetDefaultValue(kMachine, path, "x"), RegStatus::kInvalidParameter);
    EXPECT_EQ(Registry().OpenKey(kMachine, path, key), RegStatus::kNotFound);
  }
  EXPECT_EQ(Open("a"), 0u);
  Create(deep);
  key = Create(name);
  EXPECT_EQ(Set(key, std::string(16383, 'v'), ""), RegStatus::kSuccess);
  EXPECT_EQ(Set(key, std::string(16384, 'v'), ""), RegStatus::kInvalidParameter);
  EXPECT_EQ(Set(key, nul, ""), RegStatus::kInvalidParameter);
  EXPECT_EQ(Set(key, "v", std::string(1 << 20, 'x')), RegStatus::kSuccess);
  EXPECT_EQ(Set(key, "v", std::string((1 << 20) + 1, 'x')), RegStatus::kNoResources);
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

TEST_P(RegistryTest, KeysAndValuesAreListedAsFirstWrittenWithoutRegardToCase) {
  for (const char* path : {"Root\\beta", "root\\Äther\\below", "ROOT\\Alpha", "Root\\BETA"}) {
    Create(path);
  }
  const RegHandle key = Create("Root");
  for (const char* name : {"b", "", "C", "a", "B"}) Set(key, name, name);
  EXPECT_EQ(Tree("root"), "@= a=a b=B C=C Alpha{} beta{} Äther{below{} } ");
  EXPECT_EQ(Tree("root\\alpha"), "");
}

TEST_P(RegistryTest, ADefaultValueIsSetWithItsKey) {
  EXPECT_EQ(Registry().SetDefaultValue(kMachine, "New\\Deep", "text"), RegStatus::kSuccess);
  EXPECT_EQ(Get(Open("new\\deep"), ""), std::string("text\0", 5));
  Set(Open("New\\Deep"), "other", "1");
  EXPECT_EQ(Registry().SetDefaultValue(kMachine, "New\\Deep", ""), RegStatus::kSuccess);
  EXPECT_EQ(Tree("New"), "Deep{@= other=1 } ");
  EXPECT_EQ(Registry().SetDefaultValue(kMachine, "", "x"), RegStatus::kAccessDenied);
  EXPECT_EQ(Registry().SetDefaultValue(kMachine, "\\New", "x"), RegStatus::kBadPath);
}

TEST_P(RegistryTest, DeletingAKeyTakesAllBelowItAndNothingBeside) {
  for (const char* path : {"K\\a", "K\\a\\b\\c", "K\\a b\\c", "K\\a!", "K\\ab", "K\\a]"}) {
    Set(Create(path), "v", "1");
  }
  const RegHandle deleted = Open("K\\a");
  const RegHandle below = Open("K\\a\\b");
  EXPECT_EQ(Registry().DeleteKey(kMachine, "k\\A\\"), RegStatus::kSuccess);
  EXPECT_EQ(Tree("K"), "a b{c{v=1 } } a!{v=1 } ab{v=1 } a]{v=1 } ");
  EXPECT_EQ(Answers(deleted), kAllDeleted);
  EXPECT_EQ(Answers(below), kAllDeleted);

  const RegHandle again = Create("K\\A");
  EXPECT_EQ(Get(again, "v"), "(none)");
  EXPECT_EQ(Answers(deleted), kAllDeleted);
  Registry().CloseKey(deleted);
  EXPECT_EQ(Answers(deleted), kAllInvalid);
  EXPECT_EQ(Set(again, "v", "2"), RegStatus::kSuccess);
  EXPECT_EQ(Tree("K\\A"), "v=2 ");
}

TEST_P(RegistryTest, WhatCanNotBeDeletedStays) {
  Create("K");
  struct Case {
    const char* path;
    RegStatus status;
  };
  for (const auto& [path, status] : {
           Case{"", RegStatus::kAccessDenied},
           Case{"none", RegStatus::kNotFound},
           Case{"K\\none", RegStatus::kNotFound},
           Case{"\\K", RegStatus::kBadPath},
       }) {
    EXPECT_EQ(Registry().DeleteKey(kMachine, path), status) << path;
  }
  EXPECT_EQ(Registry().DeleteKey(RegRoot{0x80000006u}, "K"), RegStatus::kInvalidHandle);
  EXPECT_EQ(Tree("K"), "");
}

TEST_P(RegistryTest, AGroupOfChangesIsKeptOrTakenBackWhole) {
  const RegHandle before = Create("K");
  Set(before, "v", "1");
  Set(Create("K\\Old"), "w", "1");
  const auto change_all = [&] {
    EXPECT_EQ(Set(before, "v", "2"), RegStatus::kSuccess);
    EXPECT_EQ(Registry().DeleteKey(kMachine, "K\\Old"), RegStatus::kSuccess);
    EXPECT_EQ(Registry().SetDefaultValue(kMachine, "K\\New", "n"), RegStatus::kSuccess);
    EXPECT_EQ(Tree("K"), "v=2 New{@=n } ");
  };
  RegHandle inside = 0;
  {
    const ChangeScope group(Registry());
    ASSERT_EQ(group.Status(), RegStatus::kSuccess);
    change_all();
    inside = Open("K\\New");
  }
  EXPECT_EQ(Tree("K"), "v=1 Old{w=1 } ");
  EXPECT_EQ(Answers(inside), kAllInvalid);
  EXPECT_EQ(Get(before, "v"), "1");
  {
    ChangeScope group(Registry());
    change_all();
    inside = Open("K\\New");
    EXPECT_EQ(group.Commit(), RegStatus::kSuccess);
  }
  EXPECT_EQ(Tree("K"), "v=2 New{@=n } ");
  EXPECT_EQ(Set(inside, "", "m"), RegStatus::kSuccess);
}

TEST_P(RegistryTest, AGroupWithinAnotherIsAPartOfIt) {
  const RegHandle key = Create("K");
  const auto part = [&](std::string_view name, bool keep) {
    ChangeScope group(Registry());
    Set(key, name, "1");
    return keep ? group.Commit() : RegStatus::kSuccess;
  };
  {
    const ChangeScope outer(Registry());
    EXPECT_EQ(part("a", true), RegStatus::kSuccess);
  }
  EXPECT_EQ(Tree("K"), "");
  {
    ChangeScope outer(Registry());
    EXPECT_EQ(part("a", true), RegStatus::kSuccess);
    EXPECT_EQ(part("b", false), RegStatus::kSuccess);
    EXPECT_NE(outer.Commit(), RegStatus::kSuccess);
  }
  EXPECT_EQ(Tree("K"), "");
  {
    ChangeScope outer(Registry());
    EXPECT_EQ(part("a", true), RegStatus::kSuccess);
    EXPECT_EQ(outer.Commit(), RegStatus::kSuccess);
  }
  EXPECT_EQ(Tree("K"), "a=1 ");
}

}  // namespace
}  // namespace kestrune::platform
