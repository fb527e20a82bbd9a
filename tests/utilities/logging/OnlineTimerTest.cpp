#include "utilities/logging/OnlineTimer.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// A clock the test moves by hand.
struct ManualClock {
    OnlineTimer::WallTime now{};
};

OnlineTimer makeTimer(const std::shared_ptr<ManualClock>& clock) {
    return OnlineTimer([clock] { return clock->now; });
}

TEST(OnlineTimerTest, RoundsToTheNearestMillisecondWithHalvesUp) {
    auto clock = std::make_shared<ManualClock>();
    clock->now = {100, 250000.0};
    OnlineTimer timer = makeTimer(clock);
    EXPECT_EQ(timer.getCycleTime(), 0);

    clock->now = {100, 252499.6};  // 2.4996 ms
    EXPECT_EQ(timer.getCycleTime(), 2);
    clock->now = {100, 252500.0};  // 2.5 ms
    EXPECT_EQ(timer.getCycleTime(), 3);
    clock->now = {100, 250499.0};  // 0.499 ms
    EXPECT_EQ(timer.getCycleTime(), 0);
}

TEST(OnlineTimerTest, SubtractsSecondsAndMicrosecondsSeparately) {
    auto clock = std::make_shared<ManualClock>();
    clock->now = {10, 999900.0};
    OnlineTimer timer = makeTimer(clock);
    clock->now = {11, 400.0};  // ds = 1, du = -999500: 0.5 ms, rounded up
    EXPECT_EQ(timer.getCycleTime(), 1);
    clock->now = {12, 999900.0};
    EXPECT_EQ(timer.getCycleTime(), 2000);
}

TEST(OnlineTimerTest, ResetRestartsTheMeasurementAndReadingDoesNot) {
    auto clock = std::make_shared<ManualClock>();
    clock->now = {5, 0.0};
    OnlineTimer timer = makeTimer(clock);
    clock->now = {7, 300000.0};
    EXPECT_EQ(timer.getCycleTime(), 2300);
    EXPECT_EQ(timer.getCycleTime(), 2300);
    timer.resetCycleTime();
    EXPECT_EQ(timer.getCycleTime(), 0);
    clock->now = {7, 345000.0};
    EXPECT_EQ(timer.getCycleTime(), 45);
}

TEST(OnlineTimerTest, NeverRestartedTimerKeepsGrowingPastFourDigits) {
    auto clock = std::make_shared<ManualClock>();
    clock->now = {1000, 0.0};
    OnlineTimer timer = makeTimer(clock);
    clock->now = {1123, 456000.0};
    EXPECT_EQ(timer.getCycleTime(), 123456);
}

TEST(OnlineTimerTest, ClockSteppingBackwardsReadsNegative) {
    auto clock = std::make_shared<ManualClock>();
    clock->now = {50, 0.0};
    OnlineTimer timer = makeTimer(clock);
    clock->now = {49, 990000.0};  // -10 ms + 0.5, truncated toward zero
    EXPECT_EQ(timer.getCycleTime(), -9);
}

TEST(OnlineTimerTest, ElapsedMillisecondsMatchesTheTimer) {
    EXPECT_EQ(OnlineTimer::elapsedMilliseconds({3, 0.0}, {3, 1500.0}), 2);
    EXPECT_EQ(OnlineTimer::elapsedMilliseconds({3, 0.0}, {3, 1499.0}), 1);
}

TEST(OnlineTimerTest, SystemClockTimerStartsNearZeroAndKeepsSimFields) {
    OnlineTimer timer;
    EXPECT_GE(timer.getCycleTime(), 0);
    EXPECT_LT(timer.getCycleTime(), 1000);
    EXPECT_EQ(timer.getSimTime(), 0UL);
    EXPECT_EQ(timer.getTime(), 0.0F);
    timer.setSimTime(42);
    timer.setTime(1.5F);
    EXPECT_EQ(timer.getSimTime(), 42UL);
    EXPECT_EQ(timer.getTime(), 1.5F);
}

}  // namespace
