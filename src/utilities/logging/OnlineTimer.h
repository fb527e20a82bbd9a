#pragma once

#include <functional>

#include "utilities/logging/Timer.h"

// A cycle timer on the wall clock (gettimeofday). The clock can be replaced, so that code which
// depends on exact readings can be exercised without waiting.
class OnlineTimer : public Timer {
public:
    // One reading of the wall clock: whole seconds and the microseconds within that second
    // (gettimeofday gives whole microseconds; a finer clock may give fractions).
    struct WallTime {
        long seconds = 0;
        double microseconds = 0.0;
    };
    using Clock = std::function<WallTime()>;

    // Starts measuring now, on the system wall clock.
    OnlineTimer();
    // Starts measuring now, on the given clock.
    explicit OnlineTimer(Clock clock);

    void resetCycleTime() override;
    // Milliseconds since the last restart, rounded to the nearest millisecond (halves up).
    [[nodiscard]] int getCycleTime() const override;

    // The system wall clock (gettimeofday).
    static WallTime systemClock();
    // Milliseconds from `start` to `now`, rounded as getCycleTime() does. Seconds and microseconds
    // are subtracted separately; a clock that stepped backwards gives a negative result.
    static int elapsedMilliseconds(const WallTime& start, const WallTime& now);

private:
    Clock clock;
    WallTime restart;
};
