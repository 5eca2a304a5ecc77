#pragma once

#include <cstdint>

namespace kestrune::platform {

/// The processors as GetSystemInfo reports them.
struct ProcessorInfo {
  int count = 0;
  int type = 0;  ///< such as 586
};

/// Physical memory in bytes (GlobalMemoryStatus).
struct MemoryStatus {
  std::int64_t total = 0;
  std::int64_t available = 0;
};

/// What the operating system says of the computer at this moment. A call that fails gives zeros.
class SystemApi {
 public:
  virtual ~SystemApi() = default;

  virtual ProcessorInfo Processors() = 0;
  virtual MemoryStatus Memory() = 0;
};

}  // namespace kestrune::platform
