#include "ui/qt/timer_driver.h"

#include <utility>

namespace kestrune::qt {

TimerDriver::TimerDriver(controls::Scheduler& scheduler, std::function<void()> after_tick)
    : pump_(scheduler,
            {[this] {
               if (!clock_.isValid()) clock_.start();
               return clock_.elapsed();
             },
             [this](std::optional<int> milliseconds) {
               milliseconds ? timer_.start(*milliseconds) : timer_.stop();
             }},
            std::move(after_tick)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { pump_.Tick(); });
}

}  // namespace kestrune::qt
