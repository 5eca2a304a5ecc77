#pragma once

#include <memory>

#include "core/program_state.h"
#include "detect/versions.h"
#include "platform/system_api.h"

namespace kestrune::monitor {

/// What the computer does at one moment: loads in percent, memory in percent and in MB.
struct Sample {
  int cpu1 = 0;
  int cpu2 = 0;  ///< 0 where there is one processor
  int free_percent = 0;
  int free_mb = 0;

  bool operator==(const Sample&) const = default;
};

/// Takes samples. What can't be found out stays as it was, 0 at first. All that it is given must
/// outlive it.
class Sampler {
 public:
  Sampler(platform::SystemApi& system, const detect::VersionState& versions,
          const core::ProgramState& program)
      : system_(system), versions_(versions), program_(program) {}

  /// The first one opens the counters, so a measured load is 0 then.
  const Sample& Take();

 private:
  void TakeLoads();
  void TakeMemory();

  platform::SystemApi& system_;
  const detect::VersionState& versions_;
  const core::ProgramState& program_;
  std::unique_ptr<platform::LoadCounters> counters_;
  Sample sample_;
};

}  // namespace kestrune::monitor
