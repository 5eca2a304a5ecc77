#include "platform/clock_word.h"

namespace kestrune::platform {

namespace {

constexpr std::uint16_t kScramble = 0x6B3D;

std::uint16_t CoreKey(const ClockKeys& keys) {
  const std::int64_t doubled = std::int64_t{keys.homer} * 2;
  return static_cast<std::uint16_t>(keys.device ^ static_cast<std::uint16_t>(doubled) ^ kScramble);
}

std::uint16_t MemoryKey(const ClockKeys& keys) {
  // Halves of negative numbers go down.
  const std::int32_t half = keys.homer >> 1;
  return static_cast<std::uint16_t>(keys.device ^ static_cast<std::uint16_t>(half) ^ kScramble);
}

}  // namespace

std::int32_t EncodeClockWord(const ClockPair& clocks, const ClockKeys& keys) {
  const auto low = static_cast<std::uint16_t>(clocks.core ^ CoreKey(keys));
  const auto high = static_cast<std::uint16_t>(clocks.memory ^ MemoryKey(keys));
  return static_cast<std::int32_t>(std::uint32_t{high} << 16 | low);
}

ClockPair DecodeClockWord(std::int32_t word, const ClockKeys& keys) {
  const auto bits = static_cast<std::uint32_t>(word);
  return {static_cast<std::int16_t>(static_cast<std::uint16_t>(bits) ^ CoreKey(keys)),
          static_cast<std::int16_t>(static_cast<std::uint16_t>(bits >> 16) ^ MemoryKey(keys))};
}

}  // namespace kestrune::platform
