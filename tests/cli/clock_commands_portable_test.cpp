// The overclocking page in one word.

#include "cli/command_line_run.h"

namespace kestrune::cli {
namespace {

constexpr const char* kTwoPairs = "winxp-geforcefx5900";
constexpr const char* kOnePair = "win2000-geforce2";

struct ClockCommandsTest : CommandLineTest {
  std::string PerfLevel(const std::string& machine) {
    return Run({"registry", "read", kClockKey, "PerfLevel"}, machine).out;
  }
  void SetPerfLevel(const std::string& machine, const std::string& level) {
    EXPECT_EQ(
        Run({"registry", "write", kClockKey, "PerfLevel", "REG_DWORD", level}, machine).status, 0);
  }
  static constexpr const char* kClockKey = R"(HKCU\Software\NVIDIA Corporation\Global\NVTweak)";
};

TEST_F(ClockCommandsTest, ThePairIsTheOneShownUnlessOneIsNamed) {
  struct Case {
    const char* level;
    std::vector<std::string> words;
    const char* level_after;
  };
  const Case cases[] = {
      {"2", {"clocks", "show"}, "2"},         {"0", {"clocks", "show"}, "0"},
      {"0", {"clocks", "show", "--3d"}, "2"}, {"2", {"clocks", "--2d", "show"}, "0"},
      {"2", {"clocks", "reset"}, "2"},        {"2", {"clocks", "set", "310", "850", "--2d"}, "0"}};
  for (const Case& each : cases) {
    SetPerfLevel(kTwoPairs, each.level);
    const Outcome outcome = Run(each.words, kTwoPairs);
    EXPECT_EQ(outcome.status, 0) << testing::PrintToString(each.words) << outcome.err;
    EXPECT_EQ(PerfLevel(kTwoPairs), std::string("REG_DWORD ") + each.level_after + "\n")
        << testing::PrintToString(each.words);
  }
}

TEST_F(ClockCommandsTest, ACardWithOnePairNeedsNoChoiceAndHasNo3DPair) {
  for (const char* level : {"", "2"}) {
    if (*level != '\0') SetPerfLevel(kOnePair, level);
    const std::string before = PerfLevel(kOnePair);
    for (const std::vector<std::string>& words : {std::vector<std::string>{"clocks", "show"},
                                                  {"clocks", "show", "--2d"},
                                                  {"clocks", "set", "210", "333"},
                                                  {"clocks", "reset"}}) {
      const Outcome outcome = Run(words, kOnePair);
      EXPECT_EQ(outcome.status, 0) << level << testing::PrintToString(words) << outcome.err;
    }
    ExpectRefused(3, "one pair of clocks", {"clocks", "show", "--3d"}, kOnePair);
    EXPECT_EQ(PerfLevel(kOnePair), before);
  }
  ExpectRefused(3, "overclocking.memory-clock is disabled", {"clocks", "set", "210", "340"},
                kOnePair);
}

TEST_F(ClockCommandsTest, BothPairsAtOnceAndWhatIsNoNumberAreRefusedButNoOddClock) {
  ExpectRefused(2, "excludes", {"clocks", "show", "--2d", "--3d"}, kTwoPairs);
  const Outcome beyond = Run({"clocks", "set", "5000", "0"}, kTwoPairs);
  EXPECT_EQ(beyond.status, 0);
  EXPECT_EQ(beyond.err, "");
  const std::string set = Run({"clocks", "show"}, kTwoPairs).out;
  EXPECT_NE(set.find("5000 MHz\nCurrent Memory speed: 0 MHz"), std::string::npos) << set;
  const Outcome outcome = Run({"clocks", "set", "fast", "700"}, kTwoPairs);
  EXPECT_EQ(outcome.status, 3);
  EXPECT_NE(outcome.err.find("kestrunectl: the clocks can't be set to \"fast\""), std::string::npos)
      << outcome.err;
}

}  // namespace
}  // namespace kestrune::cli
