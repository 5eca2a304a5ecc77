#pragma once

#include <cstdint>

namespace kestrune::platform {

/// A core and a memory clock in MHz.
struct ClockPair {
  std::int16_t core = 0;
  std::int16_t memory = 0;

  bool operator==(const ClockPair&) const = default;
};

/// What the driver scrambles its clock words with: the adapter's PCI device identifier and the
/// number that the driver keeps as "Homer".
struct ClockKeys {
  std::int16_t device = 0;
  std::int32_t homer = 0;
};

/// From this release on Windows 9x keeps the clocks below the key of the device, as the NT family
/// does with every driver.
inline constexpr int kFirstInstanceClockDriver = 2500;

/// A clock pair as the driver and the program exchange it through the registry: the core clock in
/// the low 16 bits and the memory clock in the high ones, each XORed with a key of its own. Any
/// pair and any keys are allowed, and decoding the encoded pair gives the pair.
std::int32_t EncodeClockWord(const ClockPair& clocks, const ClockKeys& keys);
ClockPair DecodeClockWord(std::int32_t word, const ClockKeys& keys);

}  // namespace kestrune::platform
