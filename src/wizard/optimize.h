#pragma once

#include <cstdint>
#include <vector>

#include "settings/setting.h"

namespace kestrune::wizard {

/// What a tuning file says of a card; 0 is the weakest. The file's first number counts for nothing.
struct Factors {
  std::int32_t unused = 0;
  std::int32_t image = 0;  ///< image quality, and how far the LOD bias goes to either side
  std::int32_t antialiasing = 0;
  std::int32_t anisotropy = 0;
};

/// Where the sliders stand: `quality` 0 to 9, the other two 0 to 4. Of these `filtering` counts for
/// some of the values even without the fine adjustment.
struct Positions {
  int quality = 0;
  int antialiasing = 0;
  int filtering = 0;
  bool fine_adjust = false;
};

/// A call of one of the two numbered writers.
struct WriterCall {
  settings::Writer writer;
  int code;
  std::int32_t argument = 0;

  bool operator==(const WriterCall&) const = default;
};

inline constexpr int kHighestProcessorClass = 7;
/// The class of a processor, 0 to kHighestProcessorClass, by its clock in MHz.
int ProcessorClass(int mhz);

/// What the wizard writes, in its order. A part of it for which a number leaves 32 bits on the way
/// is left out.
std::vector<WriterCall> Optimize(const Positions& positions, int processor_class,
                                 const Factors& factors);

}  // namespace kestrune::wizard
