#pragma once

#include "platform/code_page.h"
#include "platform/system_api.h"

namespace kestrune::platform::win32 {

/// What the system says of the computer.
class SystemState : public SystemApi {
 public:
  /// `pages` must outlive this.
  explicit SystemState(CodePages& pages) : pages_(pages) {}

  ProcessorInfo Processors() override;
  MemoryStatus Memory() override;
  std::unique_ptr<LoadCounters> OpenLoadCounters() override;
  std::int64_t Milliseconds() override;
  void Pause(int milliseconds) override;
  std::optional<std::vector<ProcessRecord>> Processes() override;

 private:
  CodePages& pages_;
};

}  // namespace kestrune::platform::win32
