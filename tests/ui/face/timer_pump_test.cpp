#include "ui/face/timer_pump.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

/// A desktop whose clock is moved by hand.
struct HandClock {
  TimerPump::Desktop Desktop() {
    return {[this] { return now; }, [this](std::optional<int> ms) { waits = ms; }};
  }

  long long now = 1000;
  std::optional<int> waits = 77;
};

TEST(TimerPumpTest, WaitsForTheNextTimerAndForNothingElse) {
  controls::Scheduler scheduler;
  controls::Timer timer(scheduler, 100);
  int ticks = 0;
  int after = 0;
  timer.on_tick = [&] { ++ticks; };
  HandClock clock;
  {
    TimerPump pump(scheduler, clock.Desktop(), [&] { ++after; });
    EXPECT_EQ(clock.waits, std::nullopt);
    clock.now += 5000;
    timer.SetEnabled(true);
    EXPECT_EQ(clock.waits, 100) << "time that passed while nothing waited doesn't count";
    clock.now += 130;
    pump.Tick();
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(clock.waits, 70);
    clock.now += 3600'000;
    pump.Tick();
    EXPECT_EQ(ticks, 21) << "a long pause counts as two seconds";
    timer.SetEnabled(false);
    pump.Tick();
    EXPECT_EQ(clock.waits, std::nullopt);
    EXPECT_EQ(after, 3);
  }
  timer.SetEnabled(true);
  EXPECT_EQ(clock.waits, std::nullopt);
}

TEST(TimerPumpTest, ATickMayWaitForAnAnswerWhileTimersGoOn) {
  controls::Scheduler scheduler;
  controls::Timer asks(scheduler, 100);
  controls::Timer goes_on(scheduler, 10);
  HandClock clock;
  int ticks = 0;
  goes_on.on_tick = [&] { ++ticks; };
  TimerPump pump(scheduler, clock.Desktop(), nullptr);
  asks.on_tick = [&] {
    asks.SetEnabled(false);
    goes_on.SetEnabled(true);
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(clock.waits, 10);
      clock.now += 10;
      pump.Tick();
    }
  };
  asks.SetEnabled(true);
  clock.now += 100;
  pump.Tick();
  EXPECT_EQ(ticks, 5);
}

}  // namespace
}  // namespace kestrune::face
