#include "platform/win32/files.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/temp_folder.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {
namespace {

struct ProgramFilesTest : testing::Test {
  std::string Whole(const char* name) { return WholePathOf(folder / name); }
  ProgramFiles Files(const char* program = "program", const char* own = "own") {
    std::filesystem::create_directories(folder / program);
    return {Whole(program), *own != '\0' ? Whole(own) : "", pages};
  }

  TempFolder folder;
  CodePages pages{SystemCodePage()};
};

TEST_F(ProgramFilesTest, WhatIsWrittenStandsBesideTheProgramWhereThatCanBe) {
  folder.Write("program/DATA/mt.dat", "shipped");
  ProgramFiles files = Files();
  EXPECT_EQ(files.ReadBytes("\\data\\MT.DAT"), "shipped");
  EXPECT_EQ(files.ReadBytes("..\\program\\DATA\\mt.dat"), std::nullopt);
  ASSERT_TRUE(files.WriteFile("DATA/new/one.ksp", "1"));
  EXPECT_EQ(ReadAll(folder / "program/DATA/new/one.ksp"), "1");
  ASSERT_TRUE(files.AppendFile("data/NEW/one.ksp", "2"));
  EXPECT_EQ(files.ReadBytes("DATA/new/one.ksp"), "12");
  EXPECT_EQ(files.ListFiles("DATA/new", ".KSP"), std::vector<std::string>{"one.ksp"});
  ASSERT_TRUE(files.RemoveFile("DATA/new/one.ksp"));
  EXPECT_EQ(files.Locate("DATA/new/one.ksp"), std::nullopt);
  EXPECT_FALSE(files.AppendFile("DATA/new/one.ksp", "2"));
  EXPECT_FALSE(files.RemoveFile("DATA/new/one.ksp"));
  EXPECT_FALSE(files.WriteFile("..\\out.ksp", "1"));
}

/// A file where the folder should be keeps everybody out, whatever rights they have.
TEST_F(ProgramFilesTest, WhatTheProgramsFolderRefusesStandsInTheUsersOwn) {
  folder.Write("program/DATA/mt.dat", "shipped");
  folder.Write("program/DATA/Presets", "no folder");
  ProgramFiles files = Files();
  ASSERT_TRUE(files.WriteFile("DATA/Presets/one.ksp", "1"));
  EXPECT_EQ(ReadAll(folder / "own/DATA/Presets/one.ksp"), "1");
  EXPECT_EQ(files.ReadBytes("DATA/Presets/one.ksp"), "1");
  EXPECT_EQ(files.ListFiles("DATA/Presets", ".ksp"), std::vector<std::string>{"one.ksp"});
  // It stays where it is, and hides its namesake.
  folder.Write("own/DATA/mt.dat", "own");
  EXPECT_EQ(files.ReadBytes("DATA/mt.dat"), "own");
  ASSERT_TRUE(files.WriteFile("DATA/mt.dat", "new"));
  EXPECT_EQ(ReadAll(folder / "program/DATA/mt.dat"), "shipped");
  EXPECT_EQ(files.ListFiles("DATA", ".dat"), std::vector<std::string>{"mt.dat"});

  ProgramFiles alone = Files("program", "");
  const auto refused = alone.WriteFile("DATA/Presets/two.ksp", "2");
  ASSERT_FALSE(refused);
  EXPECT_NE(refused.Reason().reason, "");
}

TEST_F(ProgramFilesTest, PathsHaveBlanksAndLettersThatTheSystemHas) {
  // 9x takes what its code page has, NT any letter.
  const std::string letter = IsNt() ? "\xC4\x81\xE2\x84\xA6" : "\xC3\xA9";
  const std::string place = Whole(".") + "\\a folder " + letter;
  ProgramFiles files(place, "", pages);
  ASSERT_TRUE(files.WriteFile("DATA/" + letter + ".ksp", "1"));
  EXPECT_EQ(files.ReadBytes("DATA/" + letter + ".ksp"), "1");
  EXPECT_EQ(files.ListFiles("DATA", ".ksp"), std::vector<std::string>{letter + ".ksp"});
  ASSERT_TRUE(files.ReplaceAnyFile(place + "\\tool.exe", "x"));
  EXPECT_EQ(files.ReadAnyFile(place + "\\tool.exe").Value(), "x");
  const auto listing = files.ListFolder(place);
  ASSERT_TRUE(listing);
  EXPECT_EQ(listing->folders, std::vector<std::string>{"DATA"});
  EXPECT_EQ(listing->programs, std::vector<std::string>{"tool.exe"});
  EXPECT_EQ(files.ListFolder(place + "\\none"), std::nullopt);
  EXPECT_EQ(files.ListFolder(place + "\\tool.exe"), std::nullopt);
}

TEST_F(ProgramFilesTest, AReplacedFileIsTheOldOneOrTheNewOne) {
  ProgramFiles files = Files();
  const std::string file = Whole("any");
  ASSERT_TRUE(files.ReplaceAnyFile(file, "old"));
  {
    // Who reads it without sharing keeps it as it is.
    const HANDLE open =
        CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(files.ReplaceAnyFile(file, "new"));
    CloseHandle(open);
  }
  EXPECT_EQ(ReadAll(file), "old");
  EXPECT_FALSE(files.ReplaceAnyFile(Whole("program"), "new"));
  EXPECT_FALSE(files.ReplaceAnyFile(Whole("none") + "\\any", "new"));
  ASSERT_TRUE(files.ReplaceAnyFile(file, "new"));
  EXPECT_EQ(ReadAll(file), "new");
  // Nothing stays beside it.
  EXPECT_EQ(EntriesOf(Whole("."))->size(), 2u);
}

TEST_F(ProgramFilesTest, AFileThatGrowsCanBeRead) {
  ProgramFiles files = Files();
  auto output = files.CreateAnyFile(Whole("log"));
  ASSERT_TRUE(output);
  ASSERT_TRUE(output.Value()->Put("1"));
  EXPECT_EQ(files.ReadAnyFile(Whole("log")).Value(), "1");
  ASSERT_TRUE(output.Value()->Put("2"));
  EXPECT_EQ(files.ReadAnyFile(Whole("log")).Value(), "12");
  EXPECT_FALSE(files.CreateAnyFile(Whole("none") + "\\log"));
}

TEST_F(ProgramFilesTest, ADeviceIsNoOrdinaryFile) {
  ProgramFiles files = Files();
  const auto read = files.ReadFile("NUL");
  ASSERT_FALSE(read);
  EXPECT_EQ(read.Reason().fault, FileFault::kNotUsable);
  EXPECT_FALSE(files.ReadFile("CON"));
  EXPECT_EQ(files.ReadBytes("NUL"), std::nullopt);
  // It is written as it is.
  EXPECT_TRUE(files.ReplaceAnyFile("NUL", "x"));
  auto output = files.CreateAnyFile("NUL");
  ASSERT_TRUE(output);
  EXPECT_TRUE(output.Value()->Put("x"));
}

TEST_F(ProgramFilesTest, TellsWhatIsWrongWithAFile) {
  ProgramFiles files = Files();
  folder.Write("program/here.ksp", "1");
  struct Case {
    std::string path;
    FileFault fault;
  };
  const Case cases[] = {{Whole("program") + "\\none.ksp", FileFault::kNoFile},
                        {Whole("none.ksp"), FileFault::kNoFile},
                        {Whole("none") + "\\x.ksp", FileFault::kNoFolder},
                        {Whole("program"), FileFault::kNotUsable},
                        {std::string("a\0b", 3), FileFault::kOther}};
  for (const Case& each : cases) {
    const auto read = files.ReadFile(each.path);
    ASSERT_FALSE(read) << each.path;
    EXPECT_EQ(read.Reason().fault, each.fault) << each.path << ": " << read.Reason().reason;
    EXPECT_FALSE(read.Reason().reason.empty() || read.Reason().reason.ends_with('.')) << each.path;
  }
  EXPECT_EQ(files.ReadFile(Whole("program") + "\\HERE.ksp").Value(), "1");
}

TEST_F(ProgramFilesTest, LeadsFromADriveToAFileAndBack) {
  ProgramFiles files = Files();
  struct Case {
    const char* folder;
    const char* name;
    const char* path;
  };
  const Case cases[] = {{"C:\\", "a", "C:\\a"},
                        {"C:\\a", "b c", "C:\\a\\b c"},
                        {"C:\\a\\b", "..", "C:\\a"},
                        {"C:\\a", "..", "C:\\"},
                        {"C:\\", "..", "C:\\"}};
  for (const Case& each : cases) EXPECT_EQ(files.PathOf(each.folder, each.name), each.path);
  const std::vector<std::string> drives = files.Drives();
  EXPECT_NE(std::find(drives.begin(), drives.end(), "C:\\"), drives.end());
  for (const std::string& drive : drives) files.ListFolder(drive);
  EXPECT_TRUE(files.ListFolder("C:\\"));
}

}  // namespace
}  // namespace kestrune::platform::win32
