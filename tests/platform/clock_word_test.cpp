#include "platform/clock_word.h"

#include <gtest/gtest.h>

#include <limits>

namespace kestrune::platform {
namespace {

struct WordCase {
  std::int16_t device;
  std::int32_t homer;
  ClockPair clocks;
  std::uint32_t word;
};

TEST(ClockWord, HoldsBothClocksScrambled) {
  constexpr WordCase kCases[] = {
      {0x0330, 1000, {400, 500}, 0x680D6E4D},
      {0x0330, 70000, {400, 500}, 0xE1414B7D},
      {0x0330, 0, {0, 0}, 0x680D680D},
      {0, 1, {1, 1}, 0x6B3C6B3E},
      {0, -1, {0, 0}, 0x94C294C3},
  };
  for (const WordCase& each : kCases) {
    const ClockKeys keys{each.device, each.homer};
    const std::int32_t word = EncodeClockWord(each.clocks, keys);
    EXPECT_EQ(static_cast<std::uint32_t>(word), each.word) << each.homer;
    EXPECT_EQ(DecodeClockWord(word, keys), each.clocks) << each.homer;
  }
}

TEST(ClockWord, DecodesEveryPairThatItEncodes) {
  constexpr std::int32_t kHomers[] = {0,
                                      1,
                                      1000,
                                      70000,
                                      -1,
                                      -70001,
                                      std::numeric_limits<std::int32_t>::max(),
                                      std::numeric_limits<std::int32_t>::min()};
  constexpr std::int16_t kDevices[] = {0, 0x0041, 0x0330, -1};
  for (const std::int32_t homer : kHomers) {
    for (const std::int16_t device : kDevices) {
      const ClockKeys keys{device, homer};
      for (int mhz = -32768; mhz <= 32767; ++mhz) {
        const auto clock = static_cast<std::int16_t>(mhz);
        const ClockPair pair{clock, static_cast<std::int16_t>(~clock)};
        ASSERT_EQ(DecodeClockWord(EncodeClockWord(pair, keys), keys), pair) << mhz << " " << homer;
      }
    }
  }
}

}  // namespace
}  // namespace kestrune::platform
