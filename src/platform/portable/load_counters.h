#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/system_api.h"

namespace kestrune::platform::portable {

/// The loads that a description gives, the same at every collection; 0 where it has none.
class DescribedLoad : public LoadCounters {
 public:
  explicit DescribedLoad(const std::vector<int>& percent);

  ProcessorLoads Collect() override { return loads_; }

 private:
  ProcessorLoads loads_;
};

/// Ticks of the system's clock that a processor has spent since it was started.
struct ProcessorTimes {
  std::int64_t busy = 0;  ///< in all but idling and waiting for input and output
  std::int64_t total = 0;

  bool operator==(const ProcessorTimes&) const = default;
};
using TimesOfProcessors = std::array<std::optional<ProcessorTimes>, 2>;

/// The times of the processors 0 and 1, from text in the form of /proc/stat.
TimesOfProcessors ReadTimes(std::string_view stat);

/// The loads of the running machine. Its file stays open for as long as this lives.
class MeasuredLoad : public LoadCounters {
 public:
  explicit MeasuredLoad(const std::string& file = "/proc/stat");
  ~MeasuredLoad() override;
  MeasuredLoad(const MeasuredLoad&) = delete;
  MeasuredLoad& operator=(const MeasuredLoad&) = delete;

  ProcessorLoads Collect() override;

 private:
  int descriptor_;
  TimesOfProcessors former_;
};

}  // namespace kestrune::platform::portable
