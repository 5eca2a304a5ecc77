#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include "ui/face/timer_pump.h"

namespace kestrune::qt {

/// Runs a program's timers in the toolkit's event loop.
class TimerDriver {
 public:
  TimerDriver(controls::Scheduler& scheduler, std::function<void()> after_tick);

 private:
  QElapsedTimer clock_;
  QTimer timer_;
  face::TimerPump pump_;
};

}  // namespace kestrune::qt
