#pragma once

#include <functional>
#include <vector>

namespace kestrune::controls {

class Scheduler;

/// Fires every `interval` milliseconds while it is enabled. Enabling it starts a new interval.
class Timer {
 public:
  Timer(Scheduler& scheduler, int interval_ms);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  int Interval() const { return interval_ms_; }
  /// Milliseconds, at least 1. An enabled timer starts a new interval of that length.
  void SetInterval(int interval_ms);

  std::function<void()> on_tick;

 private:
  friend class Scheduler;

  void StartInterval();

  Scheduler& scheduler_;
  int interval_ms_;
  bool enabled_ = false;
  long long due_ms_ = 0;
};

/// The clock that timers run on. A face moves it along with real time; a script moves it by hand.
class Scheduler {
 public:
  /// Moves the clock on and fires each timer as often as it falls due, in order of time.
  void Advance(long long milliseconds);
  /// Milliseconds until the next timer is due; -1 when none is enabled.
  long long UntilNext() const;

  /// Called when a timer has started an interval, so that a face can wait for it.
  std::function<void()> on_armed;

 private:
  friend class Timer;

  Timer* NextDue() const;

  std::vector<Timer*> timers_;
  long long now_ms_ = 0;
};

}  // namespace kestrune::controls
