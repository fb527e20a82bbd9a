#pragma once

#include "utilities/logging/Timer.h"

// A cycle timer whose reading the test sets; resetCycleTime() sets it to 0.
class FakeTimer : public Timer {
public:
    explicit FakeTimer(int milliseconds = 0) : milliseconds(milliseconds) {}
    void resetCycleTime() override { milliseconds = 0; }
    [[nodiscard]] int getCycleTime() const override { return milliseconds; }
    void set(int value) { milliseconds = value; }

private:
    int milliseconds;
};
