#include "ui/qt/timer_driver.h"

#include <algorithm>
#include <utility>

namespace kestrune::qt {

namespace {

// After a pause (a suspended machine, a debugger) a timer must not fire for all of it.
constexpr long long kLongestStepMs = 2000;

}  // namespace

TimerDriver::TimerDriver(controls::Scheduler& scheduler, std::function<void()> after_tick)
    : scheduler_(scheduler), after_tick_(std::move(after_tick)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
  scheduler_.on_armed = [this] { Armed(); };
  clock_.start();
  Wait();
}

TimerDriver::~TimerDriver() { scheduler_.on_armed = nullptr; }

void TimerDriver::Armed() {
  // The clock stands still while nothing waits: time that passed before must not count.
  if (!timer_.isActive() && !ticking_) clock_.start();
  Wait();
}

void TimerDriver::Tick() {
  const long long elapsed = std::min<long long>(clock_.restart(), kLongestStepMs);
  // A tick may open a message whose event loop brings further ticks; those go on by themselves.
  const bool was_ticking = std::exchange(ticking_, true);
  Wait();
  scheduler_.Advance(elapsed);
  ticking_ = was_ticking;
  Wait();
  if (after_tick_) after_tick_();
}

void TimerDriver::Wait() {
  const long long until = scheduler_.UntilNext();
  if (until < 0) {
    timer_.stop();
  } else {
    timer_.start(static_cast<int>(std::clamp<long long>(until - clock_.elapsed(), 1, 3600'000)));
  }
}

}  // namespace kestrune::qt
