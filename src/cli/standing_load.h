#pragma once

#include <memory>

#include "platform/system_api.h"

namespace kestrune::cli {

/// Stands in front of a system whose clock is moved by hand. No processor does anything in such
/// time, so a load stays what it was first. The system must outlive it.
class StandingLoad : public platform::SystemApi {
 public:
  explicit StandingLoad(platform::SystemApi& inner) : inner_(inner) {}

  platform::ProcessorInfo Processors() override { return inner_.Processors(); }
  platform::MemoryStatus Memory() override { return inner_.Memory(); }
  std::int64_t Milliseconds() override { return inner_.Milliseconds(); }
  void Pause(int milliseconds) override { inner_.Pause(milliseconds); }
  std::optional<std::vector<platform::ProcessRecord>> Processes() override {
    return inner_.Processes();
  }
  std::unique_ptr<platform::LoadCounters> OpenLoadCounters() override {
    return std::make_unique<Counters>(inner_.OpenLoadCounters()->Collect());
  }

 private:
  class Counters : public platform::LoadCounters {
   public:
    explicit Counters(const platform::ProcessorLoads& first) : first_(first) {}
    platform::ProcessorLoads Collect() override { return first_; }

   private:
    platform::ProcessorLoads first_;
  };

  platform::SystemApi& inner_;
};

}  // namespace kestrune::cli
