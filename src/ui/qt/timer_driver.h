#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

#include "controls/timer.h"

namespace kestrune::qt {

/// Moves a program's clock along with real time for as long as one of its timers is enabled, and
/// calls `after_tick` each time. It takes the scheduler's `on_armed` while it lives.
class TimerDriver {
 public:
  TimerDriver(controls::Scheduler& scheduler, std::function<void()> after_tick);
  ~TimerDriver();
  TimerDriver(const TimerDriver&) = delete;
  TimerDriver& operator=(const TimerDriver&) = delete;

 private:
  void Armed();
  void Tick();
  void Wait();

  controls::Scheduler& scheduler_;
  std::function<void()> after_tick_;
  QTimer timer_;
  QElapsedTimer clock_;
  bool ticking_ = false;
};

}  // namespace kestrune::qt
