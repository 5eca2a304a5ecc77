#include "core/registry.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::core {
namespace {

using test::FakeMachine;

constexpr RegRoot kRoot = RegRoot::kCurrentUser;
constexpr std::string_view kPath = R"(Software\A\B)";
constexpr std::string_view kKey = R"(HKCU\Software\A\B)";

struct BasRegistryTest : testing::Test {
  FakeMachine machine;
  basRegistry registry{machine.Services().registry};

  /// Writes a value and says what became of it: "TYPE DATA" or why not.
  std::string Written(const RegInput& value) {
    switch (registry.WriteRegValue(kRoot, kPath, "V", value)) {
      case WriteResult::kOverflow:
        return "overflow";
      case WriteResult::kTypeMismatch:
        return "type mismatch";
      default:
        return machine.Stored(kKey, "V");
    }
  }
};

struct ReadCase {
  std::string stored;
  RegValue read;
};

TEST_F(BasRegistryTest, ReadsEachStoredTypeBySizeAndKind) {
  const auto number = [](std::int32_t n) { return RegValue(n); };
  const RegValue kEmpty;
  const ReadCase cases[] = {{"REG_DWORD 4294967295", number(-1)},
                            {"REG_DWORD 2500", number(2500)},
                            {"REG_BINARY", number(0)},
                            {"REG_BINARY 7F", number(127)},
                            {"REG_BINARY 34 12", number(4660)},
                            {"REG_BINARY 01 02 80", number(0x800201)},
                            {"REG_BINARY 01 00 00 00", number(1)},
                            {"REG_BINARY FF FF FF FF", number(-1)},
                            {"REG_BINARY 01 00 00 00 FF", number(1)},
                            {"REG_BINARY 02 00 00 00 FF FF", number(2)},
                            {"REG_BINARY 01 00 00 00 00 00 00", kEmpty},
                            {"REG_BINARY 01 00 00 00 00 00 00 00", kEmpty},
                            {"REG_SZ text", RegValue(std::string("text"))},
                            {"REG_SZ 12", RegValue(std::string("12"))},
                            {"TYPE_0 01 00 00 00", kEmpty},
                            {"TYPE_2 41 00", kEmpty},
                            {"TYPE_5 01 00 00 00", kEmpty},
                            {"TYPE_7 41 00 00", kEmpty},
                            {"TYPE_11 01 00 00 00 00 00 00 00", kEmpty}};
  for (const ReadCase& each : cases) {
    machine.Store(kKey, "V", each.stored);
    EXPECT_EQ(registry.ReadRegValue(kRoot, kPath, "v"), each.read) << each.stored;
  }
}

TEST_F(BasRegistryTest, TextsEndAtTheirFirstNulAndWrongDwordSizesAreTakenAsTheyFit) {
  struct Case {
    platform::RegType type;
    std::string bytes;
    RegValue read;
  };
  const Case cases[] = {
      {platform::RegType::kSz, std::string("ab\0cd\0", 6), RegValue(std::string("ab"))},
      {platform::RegType::kSz, "no end", RegValue(std::string("no end"))},
      {platform::RegType::kSz, "", RegValue()},
      {platform::RegType::kDword, std::string("\x05\x01", 2), RegValue(0x105)},
      {platform::RegType::kDword, std::string("\x05\0\0\0\0", 5), RegValue()},
      {platform::RegType::kDword, "", RegValue(0)}};
  platform::RegistryApi& api = machine.Services().registry;
  platform::RegHandle key = 0;
  api.CreateKey(kRoot, kPath, key);
  for (const Case& each : cases) {
    api.SetValue(key, "V", each.type, std::as_bytes(std::span(each.bytes)));
    EXPECT_EQ(registry.ReadRegValue(kRoot, kPath, "V"), each.read) << each.bytes;
  }
  api.CloseKey(key);
}

TEST_F(BasRegistryTest, TextThatReadsAsANumberIsStoredAsOne) {
  const std::pair<std::string, std::string> cases[] = {{" 12 ", "REG_DWORD 12"},
                                                       {"+7", "REG_DWORD 7"},
                                                       {"-7", "REG_DWORD -7"},
                                                       {"007", "REG_DWORD 7"},
                                                       {"0.5", "REG_DWORD 0"},
                                                       {"1.5", "REG_DWORD 2"},
                                                       {"2.5", "REG_DWORD 2"},
                                                       {"-2.5", "REG_DWORD -2"},
                                                       {"-3.5", "REG_DWORD -4"},
                                                       {"2.51", "REG_DWORD 3"},
                                                       {".4", "REG_DWORD 0"},
                                                       {"3.", "REG_DWORD 3"},
                                                       {"1e3", "REG_DWORD 1000"},
                                                       {"1.25E+2", "REG_DWORD 125"},
                                                       {"25e-1", "REG_DWORD 2"},
                                                       {"1e-400", "REG_DWORD 0"},
                                                       {"&HFF", "REG_DWORD 255"},
                                                       {"&h8000", "REG_DWORD 32768"},
                                                       {" &HFFFFFFFF ", "REG_DWORD -1"},
                                                       {"2147483647", "REG_DWORD 2147483647"},
                                                       {"-2147483648", "REG_DWORD -2147483648"},
                                                       {"2147483647.4", "REG_DWORD 2147483647"},
                                                       {"-2147483648.5", "REG_DWORD -2147483648"},
                                                       {"2147483648", "overflow"},
                                                       {"2147483647.5", "overflow"},
                                                       {"1e400", "overflow"},
                                                       {"&H100000000", "overflow"},
                                                       {"", "REG_SZ"},
                                                       {"   ", "REG_SZ"},
                                                       {" on ", "REG_SZ on"},
                                                       {"1 2", "REG_SZ 1 2"},
                                                       {"1,5", "REG_SZ 1,5"},
                                                       {"&H", "REG_SZ &H"},
                                                       {"&HG", "REG_SZ &HG"},
                                                       {"0x10", "REG_SZ 0x10"},
                                                       {"e3", "REG_SZ e3"},
                                                       {"1e", "REG_SZ 1e"},
                                                       {"- 1", "REG_SZ - 1"},
                                                       {".", "REG_SZ ."},
                                                       {"inf", "REG_SZ inf"}};
  for (const auto& [text, stored] : cases) EXPECT_EQ(Written(text), stored) << text;
}

TEST_F(BasRegistryTest, NumbersAndBooleansAreStoredAsNumbers) {
  EXPECT_EQ(Written(true), "REG_DWORD -1");
  EXPECT_EQ(Written(false), "REG_DWORD 0");
  EXPECT_EQ(Written(2.5), "REG_DWORD 2");
  EXPECT_EQ(Written(3e9), "overflow");
  registry.WriteAsBinary = 1;
  EXPECT_EQ(Written(1), "REG_BINARY 01 00 00 00");
  EXPECT_EQ(Written(true), "REG_BINARY FF FF FF FF");
  EXPECT_EQ(Written(std::string("&H10")), "REG_BINARY 10 00 00 00");
  EXPECT_EQ(Written(std::string("on")), "type mismatch");
  EXPECT_EQ(Written(std::string()), "type mismatch");
  EXPECT_EQ(registry.WriteAsBinary, 1);
}

TEST_F(BasRegistryTest, AFailedConversionLeavesTheKeyAndNoValue) {
  registry.WriteAsBinary = 1;
  EXPECT_EQ(registry.WriteRegValue(kRoot, R"(New\Deep\Key)", "V", std::string("on")),
            WriteResult::kTypeMismatch);
  registry.WriteAsBinary = 0;
  EXPECT_EQ(registry.WriteRegValue(kRoot, R"(New\Other)", "V", std::string("9e99")),
            WriteResult::kOverflow);
  for (const std::string_view path : {"New", R"(New\Deep\Key)", R"(New\Other)"}) {
    EXPECT_TRUE(registry.RegKeyExists(kRoot, path)) << path;
    EXPECT_TRUE(registry.ReadRegValue(kRoot, path, "V").IsEmpty()) << path;
  }
}

TEST_F(BasRegistryTest, TextIsStoredTrimmedWithOneNul) {
  ASSERT_EQ(registry.WriteRegValue(kRoot, kPath, "", std::string("  on ")), WriteResult::kDone);
  platform::RegHandle key = 0;
  platform::RegType type{};
  std::size_t size = 0;
  machine.Services().registry.OpenKey(kRoot, kPath, key);
  machine.Services().registry.QueryValue(key, "", type, size, {});
  EXPECT_EQ(size, 3U);
  EXPECT_EQ(registry.ReadRegValue(kRoot, kPath, "").Text(), "on");
}

TEST_F(BasRegistryTest, ReadingAndDeletingCreateNothing) {
  EXPECT_TRUE(registry.ReadRegValue(kRoot, "Missing", "V").IsEmpty());
  registry.DeleteRegValue(kRoot, "Missing", "V");
  EXPECT_FALSE(registry.RegKeyExists(kRoot, "Missing"));
  machine.Store(kKey, "D3D_1", "REG_DWORD 1");
  registry.DeleteRegValue(kRoot, kPath, "D3d_1");
  EXPECT_EQ(machine.Stored(kKey, "D3D_1"), "");
  EXPECT_EQ(registry.LastRegStatus, platform::RegStatus::kSuccess);
}

TEST_F(BasRegistryTest, EmptyAndOtherTextIsNoNumberForTheRows) {
  EXPECT_EQ(RegValue().Number(), std::nullopt);
  EXPECT_EQ(RegValue(std::string("word")).NumberOr(5), 5);
  EXPECT_EQ(RegValue(std::string("99999999999")).Number(), std::nullopt);
  EXPECT_EQ(RegValue(std::string(" 2.5 ")).Number(), 2);
  EXPECT_EQ(RegValue(-3).Text(), "-3");
}

}  // namespace
}  // namespace kestrune::core
