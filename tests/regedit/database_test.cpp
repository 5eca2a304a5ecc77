// Which database file is chosen for a driver, and what is read of one.

#include "regedit/database.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::regedit {
namespace {

using test::FakeMachine;

/// Lays empty files of these base names.
void LayAll(FakeMachine& machine, const std::vector<std::string>& names) {
  for (const std::string& name : names) machine.Lay("DATA/Database/" + name + ".dat", "");
}

TEST(DatabaseTest, TheNearestReleaseBelowTheDriverIsChosen) {
  struct Case {
    std::vector<std::string> files;
    int driver;
    std::string chosen;
  };
  const Case cases[] = {
      {{}, 6177, "0000d3d"},
      {{"5216d3d", "6177d3d", "0000d3d"}, 6177, "6177d3d"},
      {{"5216d3d", "6177d3d", "0000d3d"}, 6000, "5216d3d"},
      {{"5216d3d", "6177d3d", "0000d3d"}, 5000, "0000d3d"},
      {{"5216d3d", "6177d3d", "0000d3d"}, 0, "0000d3d"},
      {{"6177D3D", "6177ogl", "6177sys"}, 6177, "0000d3d"},
      // The whole name is the answer where it matches, and the number alone where it is near.
      {{"6177 old d3d"}, 6177, "6177 old d3d"},
      {{"6177 old d3d"}, 6178, "6177d3d"},
      {{"0453d3d"}, 453, "0453d3d"},
      {{"0453d3d"}, 500, "453d3d"},
      {{"0000 d3d"}, 0, "0000 d3d"},
      {{" 617d3d", "+617d3d", "61.7d3d", "&H10d3d", "617d3d", "d3d", "61e1d3d"}, 9999, "0000d3d"},
  };
  for (const auto& [files, driver, chosen] : cases) {
    FakeMachine machine({.ships_files = false});
    LayAll(machine, files);
    EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kDirect3D, driver), chosen) << driver;
  }
}

TEST(DatabaseTest, NoMoreThanSixtyFiveNamesOfACategoryCount) {
  FakeMachine machine({.ships_files = false});
  for (int i = 0; i < 67; ++i) LayAll(machine, {std::to_string(1000 + i) + "sys"});
  LayAll(machine, {"0000ogl"});
  EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kSystem, 1064), "1064sys");
  EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kSystem, 1066), "1064sys");
}

TEST(DatabaseTest, TheUsersFilesStandBesideThoseThatAreInstalled) {
  FakeMachine machine;
  LayAll(machine, {"4524ogl"});
  EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kOpenGL, 4524), "4524ogl");
  EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kOpenGL, 4523), "4523ogl");
}

/// The entries as "NAME:DESCRIPTION:1 2", each with a bar behind it.
std::string Told(std::string_view bytes, std::size_t most = kMostEditorEntries) {
  FakeMachine machine;
  machine.Lay("DATA/Database/1000sys.dat", bytes);
  const auto entries = LoadDatabaseFile(machine.Files(), "1000sys", most);
  if (!entries) return "unreadable";
  std::string told;
  for (const DatabaseEntry& entry : *entries) {
    told += entry.name + ":" + entry.description + ":";
    for (const std::int32_t value : entry.values) told += std::to_string(value) + " ";
    told += "|";
  }
  return told;
}

TEST(DatabaseTest, RecordsAreFieldsUpToTheTerminator) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"a,?,x", "a:?:|"},
      {"a,\"b, c\",1,2,x\nd,e,x\n\n \r\n", "a:b, c:1 2 |d:e:|"},
      {"a\nb\n1\nx\r\nc,d,X,x", "a:b:1 |c:d:0 |"},
      {"a,b,1,2,3,4,5,6,7,8,9,10,11,x,c,d,x", "a:b:1 2 3 4 5 6 7 8 9 |c:d:|"},
      {"a,b,&HFFFF,&hFFFFFFFF, -7 ,+8,1.0,1e3,4294967296,-,x", "a:b:65535 -1 -7 8 0 0 0 0 |"},
      {"a", "a::|"},
      {"a,b", "a:b:|"},
      {"a,b,1,2", "a:b:1 2 |"},
      {"a,\"b,1,x\nc,d,x\n", "a:b,1,x\nc,d,x:|"},
      {std::string_view("\0\xFF,\x01\n\x80", 6), std::string_view("\0ÿ:\x01:0 |", 9)},
  };
  for (const auto& [bytes, told] : cases) {
    const std::string shown = Told(bytes);
    EXPECT_EQ(shown, told) << bytes;
  }
}

TEST(DatabaseTest, EntriesBeyondTheLimitAreDropped) {
  std::string bytes;
  for (int i = 0; i < 250; ++i) bytes += "n" + std::to_string(i) + ",?,x\n";
  const auto count = [&](std::size_t most) {
    const std::string told = Told(bytes, most);
    return std::count(told.begin(), told.end(), '|');
  };
  EXPECT_EQ(count(kMostEditorEntries), 201);
  EXPECT_EQ(count(101), 101);
}

TEST(DatabaseTest, AMissingFileAndAFolderInItsPlaceAreNoTable) {
  FakeMachine machine;
  machine.Lay("DATA/Database/1000ogl.dat/file", "");
  EXPECT_EQ(LoadDatabaseFile(machine.Files(), "1000ogl", 9), std::nullopt);
  EXPECT_EQ(LoadDatabaseFile(machine.Files(), "453ogl", 9), std::nullopt);
  EXPECT_EQ(FindDatabaseFile(machine.Files(), Category::kOpenGL, 1000), "0000ogl");
  machine.Lay("DATA/DATABASE/0001OGL.DAT", "a,b,x");
  EXPECT_NE(LoadDatabaseFile(machine.Files(), "0001ogl", 9), std::nullopt);
}

TEST(DatabaseTest, SuggestionsEndBeforeTheSecondZero) {
  using Values = std::vector<std::int32_t>;
  const std::pair<Values, Values> cases[] = {
      {{}, {0}},
      {{0, 1}, {0, 1}},
      {{1, 2, 3}, {1, 2, 3, 0}},
      {{3, 0, 0, 7}, {3, 0}},
      {{0, 0, 7}, {0}},
      {{5, 0, 7}, {5, 0, 7}},
      {{1, 2, 3, 4, 5, 6, 7, 8, 9}, {1, 2, 3, 4, 5, 6, 7, 8, 9}}};
  for (const auto& [values, suggested] : cases) {
    EXPECT_EQ(SuggestedValues({"n", "d", values}), suggested);
  }
}

}  // namespace
}  // namespace kestrune::regedit
