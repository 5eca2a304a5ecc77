#include "platform/portable/shell.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <thread>

#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

class CountingDriver : public DriverStandIn {
 public:
  void Reload(std::string_view command_line) override { commands.emplace_back(command_line); }
  std::vector<std::string> commands;
};

TEST(ShellTest, ReloadCommandsGoToTheDriver) {
  CountingDriver driver;
  ProcessShell shell;
  EXPECT_TRUE(shell.StartCommand("rundll32 NvCpl.dll,NvStartup", WindowState::kNormal));
  shell.SetDriverStandIn(&driver);
  for (const char* command : {"rundll32 NvCpl.dll,NvStartup", "RunDLL32.exe x", "\"rundll32\""}) {
    EXPECT_TRUE(shell.StartCommand(command, WindowState::kMinimised));
  }
  for (const char* command : {"/no/rundll32 x", "rundll32x", "", "  ", "no-such-program-here"}) {
    EXPECT_FALSE(shell.StartCommand(command, WindowState::kNormal)) << command;
  }
  EXPECT_EQ(driver.commands.size(), 3u);
  EXPECT_EQ(driver.commands[0], "rundll32 NvCpl.dll,NvStartup");
}

TEST(ShellTest, OtherCommandsBecomeProcessesThatNobodyWaitsFor) {
  TempFolder folder;
  folder.Write("say it",
               "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.out.tmp\"\nmv \"$0.out.tmp\" \"$0.out\"\n");
  std::filesystem::permissions(folder / "say it", std::filesystem::perms(0755));
  const std::string command = '"' + (folder / "say it") + "\" a \"b  c\"d \"\"";
  EXPECT_TRUE(ProcessShell(true).StartCommand(command, WindowState::kNormal));
  EXPECT_FALSE(std::filesystem::exists(folder / "say it.out"));
  EXPECT_TRUE(ProcessShell().StartCommand(command, WindowState::kNormal));
  for (int i = 0; i < 500 && !std::filesystem::exists(folder / "say it.out"); ++i) usleep(10000);
  EXPECT_EQ(ReadAll(folder / "say it.out"), "a|b  cd||");
}

/// Tells in a file what it was started with: its folder, its words, whether its session is its own.
constexpr const char* kTeller = R"sh(#!/bin/sh
{
  printf '%s|' "$(pwd)" "${0##*/}" "$@"
  [ "$(sed 's/.*) //' /proc/$$/stat | cut -d' ' -f4)" = "$SESSION" ] || printf alone
} > "$TELL.tmp"
mv "$TELL.tmp" "$TELL"
)sh";

/// Tells the sets of signals that it holds back and ignores. A shell would put its own in order.
constexpr const char* kSignalTeller = R"awk(#!/usr/bin/awk -f
BEGIN {
  while ((getline < "/proc/self/status") > 0)
    if (/^Sig(Blk|Ign)/) printf "%s ", $2 > ENVIRON["TELL"]
}
)awk";

class StartTest : public testing::Test {
 protected:
  StartTest() {
    setenv("TELL", (folder_ / "told").c_str(), 1);
    setenv("SESSION", std::to_string(getsid(0)).c_str(), 1);
    for (const char* file : {"my game", "games/my", "games/bin/on path", "games/my game x"}) {
      Lay(file, kTeller, 0755);
    }
    Lay("games/signals", kSignalTeller, 0755);
    Lay("games/text", "no program", 0644);
    Lay("games/broken", "#!/no/such/interpreter\n", 0755);
    Lay("games/rubbish", "no program either", 0755);
    EXPECT_TRUE(shell_.SetCurrentFolder(folder_ / "games"));
  }

  void Lay(const char* name, std::string_view bytes, unsigned rights) {
    std::filesystem::permissions(folder_.Write(name, bytes), std::filesystem::perms(rights));
  }
  /// What the program tells, or what kept it from starting.
  std::string Started(const std::string& command_line) {
    std::filesystem::remove(folder_ / "told");
    const auto child = shell_.StartProgram(command_line, WindowState::kNormal);
    if (!child) {
      constexpr const char* kFaults[] = {"not found", "no folder", "not executable"};
      return kFaults[static_cast<int>(child.Reason())];
    }
    EXPECT_EQ(WaitToTheEnd(*child.Value()), ChildState::kEnded) << command_line;
    return ReadAll(folder_ / "told");
  }
  static ChildState WaitToTheEnd(ChildProcess& child) {
    ChildState state = ChildState::kRuns;
    for (int i = 0; i < 100 && state == ChildState::kRuns; ++i) state = child.Wait(100);
    return state;
  }

  TempFolder folder_;
  ProcessShell shell_;
};

TEST_F(StartTest, TheProgramIsTheShortestBeginningThatNamesAFile) {
  const std::string here = folder_ / "games";
  const char* const path = getenv("PATH");
  const std::string paths = std::string(path) + ":" + (folder_ / "games/bin");
  struct Case {
    std::string command_line;
    std::string told;  ///< behind the folder
  };
  for (const Case& c : {
           Case{"my", "my|"},
           Case{"my  game  x", "my|game|x|"},
           Case{"./my \"a  b\" c\"d e\" \"\"", "my|a  b|cd e||"},
           Case{"../my game", "my game|"},
           Case{"../my game x", "my game|x|"},
           Case{" ../my game", "my game|"},
           Case{(folder_ / "my game") + " x", "my game|x|"},
           Case{'"' + (folder_ / "my game") + "\" x", "my game|x|"},
           Case{'"' + (folder_ / "my") + " game\"", "my game|"},
           Case{"../\"my game\" $HOME `id` ;*", "my game|$HOME|`id`|;*|"},
           Case{"my game x", "my game x|"},
           Case{"\"on path\" a", "on path|a|"},
       }) {
    setenv("PATH", paths.c_str(), 1);
    const std::string told = Started(c.command_line);
    setenv("PATH", path, 1);
    EXPECT_EQ(told, here + "|" + c.told + "alone") << c.command_line;
  }
}

TEST_F(StartTest, WhatCannotBeStartedSaysWhy) {
  struct Case {
    std::string command_line;
    const char* fault;
  };
  for (const Case& c : {
           Case{"", "not found"},
           Case{" \t ", "not found"},
           Case{"\"\"", "not found"},
           Case{std::string("my\0x", 4), "not found"},
           Case{"no-such-program-here x", "not found"},
           Case{"./none x", "not found"},
           Case{folder_ / "none", "not found"},
           Case{folder_ / "none/my", "no folder"},
           Case{"text/my", "no folder"},
           Case{"none/my x", "no folder"},
           Case{"text", "not executable"},
           Case{"broken", "not executable"},
           Case{"rubbish x", "not executable"},
           Case{"./bin", "not executable"},
           Case{"none" + std::string(1 << 22, ' ') + "x", "not found"},
           Case{"my " + std::string(1 << 23, 'x'), "not executable"},
           Case{"/dev/null", "not executable"},
       }) {
    EXPECT_EQ(Started(c.command_line), c.fault) << c.command_line;
  }
}

TEST_F(StartTest, OnlyAFolderThatIsThereBecomesCurrentAndForPrograms) {
  const std::filesystem::path own = std::filesystem::current_path();
  for (const char* folder : {"none", "text", "C:\\Games", "/no/such/folder"}) {
    EXPECT_FALSE(shell_.SetCurrentFolder(folder)) << folder;
  }
  EXPECT_FALSE(shell_.SetCurrentFolder(std::string_view("bin\0x", 5)));
  EXPECT_TRUE(shell_.SetCurrentFolder(""));
  EXPECT_EQ(Started("my"), (folder_ / "games") + "|my|alone");
  EXPECT_TRUE(shell_.SetCurrentFolder("bin"));
  EXPECT_EQ(Started("\"on path\""), (folder_ / "games/bin") + "|on path|alone");
  EXPECT_EQ(std::filesystem::current_path(), own);
  std::filesystem::remove(folder_ / "told");
  EXPECT_TRUE(shell_.StartCommand("../my", WindowState::kNormal));
  for (int i = 0; i < 500 && !std::filesystem::exists(folder_ / "told"); ++i) usleep(10000);
  EXPECT_EQ(ReadAll(folder_ / "told"), (folder_ / "games/bin") + "|my|alone");
}

TEST_F(StartTest, WaitingEndsWithTheProgramAndNotBefore) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  const auto child = shell_.StartProgram("/bin/sleep 0.5", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kRuns);
  EXPECT_EQ(child.Value()->Wait(50), ChildState::kRuns);
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(450));
  EXPECT_EQ(child.Value()->Wait(20000), ChildState::kEnded);
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(450));
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(child.Value()->Wait(20000), ChildState::kEnded);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
}

TEST_F(StartTest, AProgramCanBeEnded) {
  const auto child = shell_.StartProgram("/bin/sleep 30", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kRuns);
  child.Value()->End();
  EXPECT_EQ(child.Value()->Wait(20000), ChildState::kEnded);
  child.Value()->End();
}

TEST_F(StartTest, TheHelperStandsInForItsCommandLineAlone) {
  const std::string program = folder_ / "none\\DATA\\d3dinfo.exe";
  shell_.SetHelper(program, {"/bin/sh", "-c", "echo helped > \"$TELL\""});
  EXPECT_FALSE(shell_.StartProgram(program + " x", WindowState::kNormal));
  const auto child = shell_.StartProgram(folder_ / "none\\Data\\D3DINFO.exe", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(20000), ChildState::kEnded);
  EXPECT_EQ(ReadAll(folder_ / "told"), "helped\n");
  shell_.SetHelper(program, {"/no/helper"});
  EXPECT_FALSE(shell_.StartProgram(program, WindowState::kNormal));
}

TEST_F(StartTest, AProgramOutlivesWhatWaitsForIt) {
  Lay("games/slow", "#!/bin/sh\nsleep 0.3\necho done > \"$TELL\"\n", 0755);
  {
    const auto child = shell_.StartProgram("slow", WindowState::kNormal);
    ASSERT_TRUE(child);
    EXPECT_EQ(child.Value()->Wait(0), ChildState::kRuns);
  }
  for (int i = 0; i < 500 && !std::filesystem::exists(folder_ / "told"); ++i) usleep(10000);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "told"));
}

TEST_F(StartTest, ADryRunFindsTheProgramAndStartsNothing) {
  ProcessShell dry(true);
  EXPECT_TRUE(dry.SetCurrentFolder(folder_ / "games"));
  const auto child = dry.StartProgram("my", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kEnded);
  EXPECT_FALSE(dry.StartProgram("none/my", WindowState::kNormal));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "told"));
}

TEST_F(StartTest, ReloadCommandsHaveEndedWhenTheDriverHasDoneThem) {
  CountingDriver driver;
  shell_.SetDriverStandIn(&driver);
  const auto child = shell_.StartProgram("rundll32 x", WindowState::kNormal);
  ASSERT_TRUE(child);
  EXPECT_EQ(child.Value()->Wait(0), ChildState::kEnded);
  EXPECT_EQ(driver.commands, std::vector<std::string>{"rundll32 x"});
}

/// How a process of its own ends that does that.
int EndOf(const std::function<void()>& act) {
  const pid_t process = fork();
  if (process == 0) {
    act();
    _exit(0);
  }
  int status = 0;
  waitpid(process, &status, 0);
  return status;
}

TEST_F(StartTest, ARequestToEndIsToldThenAnsweredAndTheProgramGoesOn) {
  Lay("games/slow", "#!/bin/sh\nsleep 1\necho done > \"$TELL\"\n", 0755);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    std::filesystem::remove(folder_ / "told");
    const int status = EndOf([&] {
      auto child = shell_.StartProgram("slow", WindowState::kNormal);
      if (!child || child.Value()->Wait(0) != ChildState::kRuns) _exit(1);
      const pid_t self = getpid();
      const pid_t sender = fork();
      if (sender == 0) {
        usleep(100000);
        kill(self, number);
        _exit(0);
      }
      if (child.Value()->Wait(20000) != ChildState::kInterrupted) _exit(2);
      if (child.Value()->Wait(20000) != ChildState::kInterrupted) _exit(3);
      child = FailWith(StartFault::kNotFound);
      _exit(4);
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << number << ": " << status;
    EXPECT_FALSE(std::filesystem::exists(folder_ / "told"));
    for (int i = 0; i < 500 && !std::filesystem::exists(folder_ / "told"); ++i) usleep(10000);
    EXPECT_TRUE(std::filesystem::exists(folder_ / "told")) << number;
  }
}

TEST_F(StartTest, RequestsAreTakenOnlyWhileSomethingWaits) {
  const int ignored = EndOf([&] {
    signal(SIGHUP, SIG_IGN);
    const auto child = shell_.StartProgram("/bin/sleep 0.3", WindowState::kNormal);
    if (!child || child.Value()->Wait(0) != ChildState::kRuns) _exit(1);
    raise(SIGHUP);
    _exit(WaitToTheEnd(*child.Value()) == ChildState::kEnded ? 0 : 2);
  });
  EXPECT_EQ(ignored, 0) << "what was ignored stays so";
  const int before = EndOf([&] {
    const auto child = shell_.StartProgram("/bin/sleep 0.3", WindowState::kNormal);
    raise(SIGTERM);
  });
  EXPECT_TRUE(WIFSIGNALED(before));
  const int after = EndOf([&] {
    {
      const auto child = shell_.StartProgram("/bin/sleep 0.1", WindowState::kNormal);
      if (!child || WaitToTheEnd(*child.Value()) != ChildState::kEnded) _exit(1);
    }
    raise(SIGTERM);
  });
  EXPECT_TRUE(WIFSIGNALED(after));
}

TEST_F(StartTest, AStartedProgramGetsItsSignalsAsAtALogOn) {
  const int status = EndOf([&] {
    sigset_t some;
    sigemptyset(&some);
    sigaddset(&some, SIGTERM);
    sigprocmask(SIG_BLOCK, &some, nullptr);
    signal(SIGHUP, SIG_IGN);
    signal(SIGPIPE, SIG_IGN);
    _exit(Started("signals") == "0000000000000000 0000000000000000 " ? 0 : 1);
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace kestrune::platform::portable
