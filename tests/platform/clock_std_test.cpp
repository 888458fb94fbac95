#include "platform/clock_std.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/pump_sleep.h"

namespace trillomat {
namespace {

TEST(StdClock, RunsWithTheSystemWhileThePumpSleeps) {
  const StdClock clock;
  SleepPump pump;
  const auto begin = std::chrono::steady_clock::now();
  const double before = clock.SecondsSinceMidnight();
  EXPECT_TRUE(pump.WaitForEvents(20.5));
  double passed = clock.SecondsSinceMidnight() - before;
  if (passed < 0) passed += 86400;
  const std::chrono::duration<double> real = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(real.count(), 0.0205);
  EXPECT_NEAR(passed, real.count(), 0.01);
  EXPECT_GE(before, 0);
  EXPECT_LT(before, 86401);
  EXPECT_FALSE(clock.DateText().empty());
  EXPECT_NE(clock.TimeText().find_first_of("0123456789"), std::string::npos);
}

}  // namespace
}  // namespace trillomat
