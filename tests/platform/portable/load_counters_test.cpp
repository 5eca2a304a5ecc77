#include "platform/portable/load_counters.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "platform/portable/system.h"
#include "platform/temp_folder.h"

namespace kestrune::platform::portable {
namespace {

std::string Shown(const ProcessorLoads& loads) {
  std::string text;
  for (const std::optional<double>& load : loads) {
    text += (text.empty() ? "" : " ") + (load ? std::to_string(*load).substr(0, 5) : "-");
  }
  return text;
}

/// The sum of all processors, whose line comes first, is meant for nobody.
std::string Stat(const std::string& lines) {
  return "cpu  900 900 900 900 900 900 900 900 0 0\n" + lines + "intr 1 2 3\n";
}

TEST(LoadCountersTest, BusyIsAllButIdlingAndWaiting) {
  const auto times = ReadTimes(
      Stat("cpu0 1 2 4 1000 2000 8 16 32 5 6\ncpu1 7 0 0 3\ncpu10 1 1 1 1 1 1 1 1 1 1\n"));
  EXPECT_EQ(times[0], (ProcessorTimes{63, 3063}));
  EXPECT_EQ(times[1], (ProcessorTimes{7, 10}));
  EXPECT_EQ(ReadTimes("")[0], std::nullopt);
  EXPECT_EQ(ReadTimes(Stat("cpu0 1 2 x\n"))[0], std::nullopt);
  EXPECT_EQ(ReadTimes(Stat("cpu10 1 2 3 4\n"))[1], std::nullopt);
  EXPECT_EQ(ReadTimes(Stat("cpu0 1 2 99999999999999999999 4\n"))[0], std::nullopt);
}

TEST(LoadCountersTest, ALoadIsTheShareOfTheTimeSinceTheLastCollection) {
  TempFolder folder;
  const std::string file = folder / "stat";
  folder.Write("stat", "");
  MeasuredLoad counters(file);
  struct Case {
    const char* what;
    std::string lines;
    const char* loads;
  };
  for (const Case& c : {
           Case{"the first one begins", "cpu0 0 0 0 100\ncpu1 0 0 0 100\n", "- -"},
           Case{"a quarter and all", "cpu0 10 0 0 130\ncpu1 40 0 0 100\n", "25.00 100.0"},
           Case{"no time has passed", "cpu0 10 0 0 130\ncpu1 40 0 0 100\n", "- -"},
           Case{"nothing but idling", "cpu0 10 0 0 170\ncpu1 40 0 0 140\n", "0.000 0.000"},
           Case{"the clock steps back", "cpu0 1 0 0 9\ncpu1 42 0 0 146\n", "- 25.00"},
           Case{"and counts on from there", "cpu0 4 0 0 16\ncpu1 42 0 0 150\n", "30.00 0.000"},
           Case{"idle time steps back", "cpu0 24 0 0 6\ncpu1 42 0 0 154\n", "100.0 0.000"},
           Case{"busy time steps back", "cpu0 4 0 0 46\ncpu1 42 0 0 158\n", "0.000 0.000"},
           Case{"the second is switched off", "cpu0 6 0 0 54\n", "20.00 -"},
           Case{"it is back", "cpu0 6 0 0 64\ncpu1 2 0 0 8\n", "0.000 -"},
           Case{"it counts again", "cpu0 6 0 0 74\ncpu1 7 0 0 13\n", "0.000 50.00"},
           Case{"the file is empty", "", "- -"},
       }) {
    std::ofstream(file) << (c.lines.empty() ? "" : Stat(c.lines));
    EXPECT_EQ(Shown(counters.Collect()), c.loads) << c.what;
  }
  MeasuredLoad hidden(folder / "none");
  EXPECT_EQ(Shown(hidden.Collect()), "- -");
  EXPECT_EQ(Shown(hidden.Collect()), "- -");
}

TEST(LoadCountersTest, ADescribedLoadCountsAtOnce) {
  struct Case {
    std::vector<int> described;
    const char* loads;
  };
  for (const auto& [described, loads] :
       {Case{{37, 42}, "37.00 42.00"}, Case{{37}, "37.00 0.000"}, Case{{}, "0.000 0.000"}}) {
    MachineDescription machine;
    machine.processor.load = described;
    DescribedSystem system(machine, [] { return DescribedProcessor(); });
    const auto counters = system.OpenLoadCounters();
    EXPECT_EQ(Shown(counters->Collect()), loads);
    EXPECT_EQ(Shown(counters->Collect()), loads);
  }
}

TEST(LoadCountersTest, TheRunningMachineIsMeasuredWhereNothingIsDescribed) {
  const MachineDescription machine;
  DescribedSystem system(machine, [] { return DescribedProcessor(); });
  const auto counters = system.OpenLoadCounters();
  EXPECT_EQ(Shown(counters->Collect()), "- -");
  // Clock ticks are hundredths of a second.
  std::optional<double> load;
  for (int i = 0; i < 1000 && !load; ++i) {
    usleep(10'000);
    load = counters->Collect()[0];
  }
  ASSERT_TRUE(load);
  EXPECT_TRUE(*load >= 0 && *load <= 100) << *load;
}

}  // namespace
}  // namespace kestrune::platform::portable
