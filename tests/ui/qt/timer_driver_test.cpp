#include "ui/qt/timer_driver.h"

#include <gtest/gtest.h>

#include <QTest>

namespace kestrune::qt {
namespace {

TEST(TimerDriver, TimersRunInRealTimeWhileTheyAreEnabled) {
  controls::Scheduler scheduler;
  controls::Timer timer(scheduler, 10);
  const TimerDriver driver(scheduler, nullptr);
  QTest::qWait(60);
  int ticks = 0;
  timer.on_tick = [&] {
    if (++ticks == 3) timer.SetEnabled(false);
  };
  timer.SetEnabled(true);
  QElapsedTimer clock;
  clock.start();
  EXPECT_TRUE(QTest::qWaitFor([&ticks] { return ticks == 3; }));
  EXPECT_GE(clock.elapsed(), 28);
  QTest::qWait(40);
  EXPECT_EQ(ticks, 3);
}

}  // namespace
}  // namespace kestrune::qt
