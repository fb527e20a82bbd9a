#include "utilities/logging/OnlineTimer.h"

#include <sys/time.h>

#include <utility>

OnlineTimer::OnlineTimer() : OnlineTimer(&OnlineTimer::systemClock) {}

OnlineTimer::OnlineTimer(Clock clock) : clock(std::move(clock)), restart(this->clock()) {}

void OnlineTimer::resetCycleTime() {
    restart = clock();
}

int OnlineTimer::getCycleTime() const {
    return elapsedMilliseconds(restart, clock());
}

OnlineTimer::WallTime OnlineTimer::systemClock() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return WallTime{static_cast<long>(now.tv_sec), static_cast<double>(now.tv_usec)};
}

int OnlineTimer::elapsedMilliseconds(const WallTime& start, const WallTime& now) {
    const long ds = now.seconds - start.seconds;
    const double du = now.microseconds - start.microseconds;  // may be negative
    const double milliseconds = du / 1000.0 + 1000.0 * static_cast<double>(ds) + 0.5;
    return static_cast<int>(milliseconds);  // truncates toward zero
}
