#pragma once

#include "platform/system_api.h"

namespace kestrune::detect {

/// Physical memory in whole MB.
struct MemoryMegabytes {
  int total = 0;  ///< an amount just below a multiple of 4 counts as that
  int free = 0;   ///< one more than what is free

  bool operator==(const MemoryMegabytes&) const = default;
};

/// The memory as the program tells it: to the nearest MB, halves to the even one.
MemoryMegabytes GetMemInfo(const platform::MemoryStatus& memory);

}  // namespace kestrune::detect
