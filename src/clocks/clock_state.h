#pragma once

#include <cstdint>

namespace kestrune::clocks {

/// The clocks as last decoded, in MHz; 0 until they have been read.
struct ClockState {
  std::int16_t DefaultCoreMHz = 0;
  std::int16_t DefaultMemoryMHz = 0;
  /// The clocks in force; before a set, the requested ones.
  std::int16_t CoreMHz = 0;
  std::int16_t MemoryMHz = 0;
  /// Which pair the overclocking page edits: 0 the 2D clocks, 1 the 3D clocks.
  int Clock3D = 0;
  /// While it is 1, reading a processor with two pairs keeps the stored values in place while the
  /// driver answers.
  int KeepClockValues = 0;
};

}  // namespace kestrune::clocks
