#pragma once

#include <functional>

#include "platform/portable/machine_description.h"
#include "platform/system_api.h"

namespace kestrune::platform::portable {

/// What a description says of the computer, else what the running machine says of itself. The
/// description must outlive this.
class DescribedSystem : public SystemApi {
 public:
  /// `processor` gives the description's processors, completed where it has none.
  DescribedSystem(const MachineDescription& machine, std::function<DescribedProcessor()> processor)
      : machine_(machine), processor_(std::move(processor)) {}

  ProcessorInfo Processors() override;
  MemoryStatus Memory() override;
  std::unique_ptr<LoadCounters> OpenLoadCounters() override;
  std::int64_t Milliseconds() override;
  void Pause(int milliseconds) override;
  std::optional<std::vector<ProcessRecord>> Processes() override;

 private:
  const MachineDescription& machine_;
  std::function<DescribedProcessor()> processor_;
};

/// The memory of the running machine, from text in the form of /proc/meminfo: all of it, and what
/// programs could still get.
MemoryStatus ReadMemory(std::string_view memory_info);

}  // namespace kestrune::platform::portable
