// The index and the tuning files, and what they say when they are wrong.

#include "wizard/tuning.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::wizard {
namespace {

using test::FakeMachine;
using test::Joined;

std::string Text(const Factors& factors) {
  return Joined({std::to_string(factors.unused), std::to_string(factors.image),
                 std::to_string(factors.antialiasing), std::to_string(factors.anisotropy)},
                " ");
}

TEST(TuningTest, AnIndexListsItsEntriesButThoseThatLeadOut) {
  struct Case {
    const char* index;
    const char* entries;
  };
  const Case cases[] = {
      {"Default\r\n\"Racing, fast\",b\nc d", "Default|Racing, fast|b|c d"},
      {"a,,b,.,..,c", "a|b|c"},
      {"\\x,/x,C:\\x,C:x,ok", "ok"},
      {"a\\..\\..\\b,../b,a/..,\"..\",a..b,...,a\\b", "a..b|...|a\\b"},
      {"", ""},
  };
  for (const auto& [index, entries] : cases) {
    FakeMachine machine;
    machine.Lay("DATA/PW/index.dat", index);
    const auto read = ReadIndex(machine.Files());
    ASSERT_TRUE(read) << index;
    EXPECT_EQ(Joined(*read, "|"), entries) << index;
  }
  FakeMachine bare({.ships_files = false});
  EXPECT_FALSE(ReadIndex(bare.Files()));
}

TEST(TuningTest, AFileHasTheTwoCharactersOfItsCard) {
  EXPECT_EQ(CardCode("0141"), "14");
  EXPECT_EQ(CardCode("0092"), "09");
  EXPECT_EQ(CardCode("00F1"), "F1");
  EXPECT_EQ(CardCode("00fe"), "FE");
  EXPECT_EQ(CardCode("01d1"), "1D");
  EXPECT_EQ(CardCode("00e0"), "0E");
  EXPECT_EQ(CardCode("00F"), "");
  EXPECT_EQ(CardCode(""), "");
}

TEST(TuningTest, AFieldThatIsNoWholeNumberLeavesItsFactor) {
  struct Case {
    const char* text;
    const char* factors;
  };
  const Case cases[] = {
      {"1,2,3,4", "1 2 3 4"},
      {"1\r\n-2\r\n\"3\"\r\n+4\r\n5", "1 -2 3 4"},
      {"1,2", "1 2 -3 -4"},
      {"", "-1 -2 -3 -4"},
      {"1 2 3 4", "-1 -2 -3 -4"},
      {"x,5,2.0,&HFFFFFFFE", "-1 5 -3 -2"},
      {",5,2147483648,-2147483648", "-1 5 -3 -2147483648"},
  };
  for (const auto& [text, factors] : cases) {
    Factors read = {-1, -2, -3, -4};
    TakeFactors(text, read);
    EXPECT_EQ(Text(read), factors) << text;
  }
}

TEST(TuningTest, ACardHasItsFileInEachEntry) {
  FakeMachine machine;
  machine.Lay("DATA/PW/Some games/F9.dat", "1,2,3,4");
  Factors factors = {7, 7, 7, 7};
  ReadFactors(machine.Files(), "Some games", "00F8", factors);
  EXPECT_EQ(Text(factors), "7 7 7 7");
  ReadFactors(machine.Files(), "some GAMES", "00f9", factors);
  EXPECT_EQ(Text(factors), "1 2 3 4");
}

}  // namespace
}  // namespace kestrune::wizard
