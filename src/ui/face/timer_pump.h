#pragma once

#include <functional>
#include <optional>

#include "controls/timer.h"

namespace kestrune::face {

/// Moves a program's clock along with real time for as long as one of its timers is enabled, and
/// calls `after_tick` each time. It takes the scheduler's `on_armed` while it lives.
class TimerPump {
 public:
  /// What a toolkit gives: a clock that never goes back, and one wait that ends with Tick(). A new
  /// wait replaces the one before; nothing ends it.
  struct Desktop {
    std::function<long long()> now_ms;
    std::function<void(std::optional<int> milliseconds)> wait;
  };

  TimerPump(controls::Scheduler& scheduler, Desktop desktop, std::function<void()> after_tick);
  ~TimerPump();
  TimerPump(const TimerPump&) = delete;
  TimerPump& operator=(const TimerPump&) = delete;

  void Tick();

 private:
  void Armed();
  void Wait();

  controls::Scheduler& scheduler_;
  Desktop desktop_;
  std::function<void()> after_tick_;
  long long reached_ms_ = 0;  ///< the desktop's time up to which the program's clock has gone
  bool waiting_ = false;
  bool ticking_ = false;
};

}  // namespace kestrune::face
