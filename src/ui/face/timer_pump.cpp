#include "ui/face/timer_pump.h"

#include <algorithm>
#include <utility>

namespace kestrune::face {

namespace {

// After a pause (a suspended machine, a debugger) a timer must not fire for all of it.
constexpr long long kLongestStepMs = 2000;
constexpr long long kLongestWaitMs = 3600'000;

}  // namespace

TimerPump::TimerPump(controls::Scheduler& scheduler, Desktop desktop,
                     std::function<void()> after_tick)
    : scheduler_(scheduler),
      desktop_(std::move(desktop)),
      after_tick_(std::move(after_tick)),
      reached_ms_(desktop_.now_ms()) {
  scheduler_.on_armed = [this] { Armed(); };
  Wait();
}

TimerPump::~TimerPump() { scheduler_.on_armed = nullptr; }

void TimerPump::Armed() {
  // The clock stands still while nothing waits: time that passed before must not count.
  if (!waiting_ && !ticking_) reached_ms_ = desktop_.now_ms();
  Wait();
}

void TimerPump::Tick() {
  const long long now = desktop_.now_ms();
  const long long elapsed = std::min(now - std::exchange(reached_ms_, now), kLongestStepMs);
  waiting_ = false;
  // A tick may open a message whose event loop brings further ticks; those go on by themselves.
  const bool was_ticking = std::exchange(ticking_, true);
  Wait();
  scheduler_.Advance(elapsed);
  ticking_ = was_ticking;
  Wait();
  if (after_tick_) after_tick_();
}

void TimerPump::Wait() {
  const long long until = scheduler_.UntilNext();
  waiting_ = until >= 0;
  if (!waiting_) {
    desktop_.wait(std::nullopt);
    return;
  }
  const long long left = until - (desktop_.now_ms() - reached_ms_);
  desktop_.wait(static_cast<int>(std::clamp<long long>(left, 1, kLongestWaitMs)));
}

}  // namespace kestrune::face
