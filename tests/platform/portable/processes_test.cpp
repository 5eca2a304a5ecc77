#include "platform/portable/processes.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>

#include "platform/portable/machine_description.h"
#include "platform/portable/system.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

/// A stat file's line: what stands behind the name are the numbers of a process that runs.
std::string Stat(const std::string& name, int parent, unsigned flags, int nice, int threads,
                 int policy) {
  std::string line = "7 (" + name + ") S " + std::to_string(parent) + " 7 7 0 -1 " +
                     std::to_string(flags) + " 1 2 3 4 5 6 7 8 20 " + std::to_string(nice) + " " +
                     std::to_string(threads);
  for (int field = 21; field < 41; ++field) line += " 18446744073709551615";
  return line + " " + std::to_string(policy) + " 0 0 0\n";
}

std::string Told(const ProcessRecord& process) {
  return process.name + " " + std::to_string(process.id) + " " + std::to_string(process.parent) +
         " " + std::to_string(process.threads) + " " + std::to_string(process.priority);
}

TEST(ProcessesTest, ProgramsStandByIdentifierBeforeWhatTheKernelRuns) {
  TempFolder folder;
  folder.Write("2/stat", Stat("kthreadd", 0, 0x208040, 0, 1, 0));
  folder.Write("10/stat", Stat("shell", 1, 0x400000, 0, 3, 0));
  folder.Write("9/stat", Stat("idle", 1, 0, 19, 1, 5));
  folder.Write("11/status", "ended while it was read");
  folder.Write("12/stat", "");
  folder.Write("self/stat", Stat("self", 1, 0, 0, 1, 0));
  folder.Write("uptime", "1");
  const auto found = ReadProcesses(folder / "");
  ASSERT_TRUE(found);
  std::string told;
  for (const ProcessRecord& each : *found) told += Told(each) + "\n";
  EXPECT_EQ(told, "[System Process] 0 0 1 0\nidle 9 1 1 4\nshell 10 1 3 8\nkthreadd 2 0 1 8\n");
  EXPECT_EQ(ReadProcesses(folder / "none"), std::nullopt);
}

TEST(ProcessesTest, ThePriorityFollowsFromNicenessAndClass) {
  const std::tuple<int, int, int> cases[] = {
      {-20, 0, 13}, {-10, 0, 13}, {-9, 0, 10}, {-1, 0, 10}, {0, 0, 8},  {0, 3, 8},  {1, 0, 6},
      {9, 0, 6},    {10, 0, 4},   {19, 5, 4},  {0, 1, 24},  {0, 2, 24}, {10, 6, 24}};
  for (const auto& [nice, policy, priority] : cases) {
    TempFolder folder;
    folder.Write("7/stat", Stat("p", 1, 0, nice, 1, policy));
    EXPECT_EQ(ReadProcesses(folder / "")->back().priority, priority) << nice << " " << policy;
  }
}

TEST(ProcessesTest, NamesAreWhateverStandsInTheBrackets) {
  const std::pair<std::string, std::string> cases[] = {
      {"a b", "a b"},    {"a) S 99 (b", "a) S 99 (b"}, {"(x))", "(x))"},
      {"", ""},          {"a\nb\x1B", "a\\x0Ab\\x1B"}, {"a\xFF\xC4", "a\uFFFD\uFFFD"},
      {"Größe", "Größe"}};
  for (const auto& [name, shown] : cases) {
    TempFolder folder;
    folder.Write("7/stat", Stat(name, 5, 0, 0, 2, 0));
    EXPECT_EQ(Told(ReadProcesses(folder / "")->back()), shown + " 7 5 2 8");
  }
}

TEST(ProcessesTest, TheRunningMachineListsThisProcess) {
  const auto found = ReadProcesses("/proc");
  ASSERT_TRUE(found);
  const auto self = std::find_if(found->begin(), found->end(),
                                 [](const ProcessRecord& each) { return each.id == getpid(); });
  ASSERT_NE(self, found->end());
  EXPECT_EQ(self->parent, getppid());
  EXPECT_EQ(self->name, std::string("platform_test").substr(0, 15));
}

TEST(ProcessesTest, ADescriptionsProcessesAreAllThereAre) {
  const auto loaded = ParseMachineDescription(
      "[[process]]\nname = \"a.exe\"\nid = 4\nparent = 2\nthreads = 9\npriority = 13\n"
      "[[process]]\nid = 5\n",
      "m");
  ASSERT_TRUE(loaded.Ok()) << loaded.Reason();
  DescribedSystem system(loaded.Value().description, [] { return DescribedProcessor(); });
  const auto found = system.Processes();
  ASSERT_EQ(found->size(), 3u);
  EXPECT_EQ(Told(found->at(0)), "[System Process] 0 0 1 0");
  EXPECT_EQ(Told(found->at(1)), "a.exe 4 2 9 13");
  EXPECT_EQ(Told(found->at(2)), " 5 0 0 0");
}

}  // namespace
}  // namespace kestrune::platform::portable
