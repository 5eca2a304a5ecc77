#include "monitor/sampler.h"

#include "core/number.h"
#include "detect/memory_info.h"

namespace kestrune::monitor {

namespace {

/// Shows the nearest whole number, where there is one.
void Round(std::optional<double> number, int& shown) {
  if (number) shown = core::RoundToInt32(*number).value_or(shown);
}

}  // namespace

const Sample& Sampler::Take() {
  TakeLoads();
  TakeMemory();
  return sample_;
}

void Sampler::TakeLoads() {
  if (!counters_) counters_ = system_.OpenLoadCounters();
  const auto [first, second] = counters_->Collect();
  Round(first, sample_.cpu1);
  // Windows 9x counts for one processor alone.
  if (program_.TwoCPU == 1 && versions_.OSFamily != detect::kWindows9x) {
    Round(second, sample_.cpu2);
  }
}

void Sampler::TakeMemory() {
  const auto [total, free] = detect::GetMemInfo(system_.Memory());
  sample_.free_mb = free;
  if (total > 0) Round(100.0 / total * free, sample_.free_percent);
}

}  // namespace kestrune::monitor
