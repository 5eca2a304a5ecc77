#include "platform/win32/shell.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "core/registry.h"
#include "platform/driver_keys.h"
#include "platform/temp_folder.h"
#include "platform/win32/driver_key.h"
#include "platform/win32/file_calls.h"
#include "platform/win32/registry.h"
#include "platform/win32/system.h"
#include "platform/win32/text.h"

namespace kestrune::platform::win32 {
namespace {

constexpr int kLongest = 20000;  ///< milliseconds that a test's program may take

std::string SystemFolder() {
  char folder[MAX_PATH] = {};
  GetSystemDirectoryA(folder, sizeof folder);
  return folder;
}

struct SystemShellTest : testing::Test {
  /// Starts a program, waits for its end, and tells how that went.
  std::string Run(const std::string& command_line) {
    auto child = shell.StartProgram(command_line, WindowState::kNormal);
    if (!child) {
      constexpr const char* kFaults[] = {"not found", "no folder", "not executable"};
      return kFaults[static_cast<int>(child.Reason())];
    }
    return child.Value()->Wait(kLongest) == ChildState::kEnded ? "ended" : "runs";
  }

  CodePages pages{SystemCodePage()};
  SystemShell shell{pages, false};
  TempFolder folder;
};

TEST_F(SystemShellTest, TellsWhyAProgramIsntStarted) {
  const std::string text = folder.Write("text.exe", "no program\n");
  struct Case {
    std::string command_line;
    const char* outcome;
  };
  const Case cases[] = {{"", "not found"},
                        {"  ", "not found"},
                        {"no-such-program", "not found"},
                        {SystemFolder() + "\\no-such-program.exe", "not found"},
                        {"\"" + SystemFolder() + "\\no such program.exe\" x", "not found"},
                        {SystemFolder() + "\\no-such-folder\\cmd.exe", "no folder"},
                        {text, "not executable"},
                        {"cmd.exe /c exit", "ended"}};
  for (const Case& each : cases)
    EXPECT_EQ(Run(each.command_line), each.outcome) << each.command_line;
  EXPECT_FALSE(shell.StartCommand("no-such-program", WindowState::kMinimised));
  EXPECT_FALSE(shell.StartCommand("", WindowState::kMinimised));
}

TEST_F(SystemShellTest, AProgramIsFoundByItsShortestBeginningInTheCurrentFolder) {
  std::filesystem::create_directory(folder / "a folder");
  const std::string copy = folder / "a folder/a tool.exe";
  ASSERT_TRUE(CopyFileA((SystemFolder() + "\\cmd.exe").c_str(), copy.c_str(), FALSE));
  const std::string whole = WholePathOf(copy);
  EXPECT_EQ(Run('"' + whole + "\" /c echo 1>" + '"' + WholePathOf(folder / "1") + '"'), "ended");
  EXPECT_EQ(Run(whole + " /c echo 2>" + WholePathOf(folder / "2")), "ended");
  ASSERT_TRUE(shell.SetCurrentFolder(folder / "a folder"));
  EXPECT_EQ(Run("a tool.exe /c echo 3>3"), "ended");
  for (const char* file : {"1", "2", "a folder/3"}) {
    EXPECT_TRUE(std::filesystem::exists(folder / file)) << file;
  }
}

TEST_F(SystemShellTest, TheCurrentFolderIsThatOfStartedPrograms) {
  std::filesystem::create_directories(folder / "one/two");
  const std::string before = WholePathOf(".");
  EXPECT_TRUE(shell.SetCurrentFolder(folder / "one"));
  EXPECT_TRUE(shell.SetCurrentFolder("two"));
  EXPECT_TRUE(shell.SetCurrentFolder(""));
  EXPECT_FALSE(shell.SetCurrentFolder("three"));
  EXPECT_FALSE(shell.SetCurrentFolder(folder.Write("file", "")));
  EXPECT_EQ(Run("cmd.exe /c echo here>here"), "ended");
  EXPECT_TRUE(std::filesystem::exists(folder / "one/two/here"));
  EXPECT_EQ(WholePathOf("."), before);
}

TEST_F(SystemShellTest, AChildRunsUntilItIsEnded) {
  auto child = shell.StartProgram("cmd.exe /c ping -n 60 127.0.0.1", WindowState::kMinimised);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kRuns);
  child.Value()->End();
  EXPECT_EQ(child.Value()->Wait(kLongest), ChildState::kEnded);
}

/// What a driver's command changes is there at once; a clock reading counts on it.
TEST_F(SystemShellTest, ACommandHasDoneItsWorkWhenTheCallReturns) {
  SystemRegistry system(pages);
  core::basRegistry registry(system);
  const auto write = [&registry](const char* name, const core::RegInput& value) {
    return registry.WriteRegValue(RegRoot::kCurrentUser, test::kDriverKey, name, value);
  };
  const std::string instance = "VEN_10DE&DEV_0110&SUBSYS_00000000&REV_B2";
  ASSERT_EQ(write("HardwareId", "PCI\\" + instance), core::WriteResult::kDone);
  ASSERT_EQ(write("Core", 200), core::WriteResult::kDone);
  ASSERT_EQ(write("Memory", 333), core::WriteResult::kDone);
  ASSERT_EQ(write("Release", 8195), core::WriteResult::kDone);
  const std::string program = ProgramFile();
  ASSERT_TRUE(shell.SetCurrentFolder(program.substr(0, program.rfind('\\'))));
  const std::string key = ClockKeyOf(DeviceInstanceKeyOf(instance));
  for (int i = 0; i < 3; ++i) {
    registry.DeleteRegValue(RegRoot::kCurrentUser, key, "Bart");
    EXPECT_TRUE(shell.StartCommand("rundll32 NvCpl.dll,NvStartup", WindowState::kMinimised));
    EXPECT_FALSE(registry.ReadRegValue(RegRoot::kCurrentUser, key, "Bart").IsEmpty()) << i;
  }
  system.DeleteKey(RegRoot::kCurrentUser, "Software\\KestruneTests");
  for (const RegRoot root : {RegRoot::kCurrentUser, RegRoot::kLocalMachine}) {
    system.DeleteKey(root, key.substr(0, key.rfind('\\')));
  }
}

TEST_F(SystemShellTest, ADryRunStartsNothing) {
  SystemShell dry(pages, true);
  ASSERT_TRUE(dry.SetCurrentFolder(folder / ""));
  EXPECT_TRUE(dry.StartCommand("cmd.exe /c echo x>file", WindowState::kNormal));
  const auto child = dry.StartProgram("cmd.exe /c echo x>file", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kEnded);
  EXPECT_TRUE(dry.OpenWebPage("http://localhost/"));
  EXPECT_FALSE(std::filesystem::exists(folder / "file"));
}

}  // namespace
}  // namespace kestrune::platform::win32
