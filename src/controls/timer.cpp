#include "controls/timer.h"

#include <algorithm>

namespace kestrune::controls {

Timer::Timer(Scheduler& scheduler, int interval_ms)
    : scheduler_(scheduler), interval_ms_(std::max(1, interval_ms)) {
  scheduler_.timers_.push_back(this);
}

Timer::~Timer() { std::erase(scheduler_.timers_, this); }

void Timer::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  if (enabled) StartInterval();
}

void Timer::SetInterval(int interval_ms) {
  interval_ms_ = std::max(1, interval_ms);
  if (enabled_) StartInterval();
}

void Timer::StartInterval() {
  due_ms_ = scheduler_.now_ms_ + interval_ms_;
  if (scheduler_.on_armed) scheduler_.on_armed();
}

Timer* Scheduler::NextDue() const {
  Timer* next = nullptr;
  for (Timer* timer : timers_) {
    if (timer->enabled_ && (next == nullptr || timer->due_ms_ < next->due_ms_)) next = timer;
  }
  return next;
}

void Scheduler::Advance(long long milliseconds) {
  const long long end = now_ms_ + std::max(0LL, milliseconds);
  for (Timer* timer = NextDue(); timer != nullptr && timer->due_ms_ <= end; timer = NextDue()) {
    now_ms_ = timer->due_ms_;
    timer->due_ms_ += timer->interval_ms_;
    if (timer->on_tick) timer->on_tick();
  }
  // A tick may have waited for an answer and moved the clock on by itself.
  now_ms_ = std::max(now_ms_, end);
}

long long Scheduler::UntilNext() const {
  const Timer* next = NextDue();
  return next == nullptr ? -1 : std::max(0LL, next->due_ms_ - now_ms_);
}

}  // namespace kestrune::controls
