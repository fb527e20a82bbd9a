#pragma once

#include <deque>

#include "math/Point.h"

class WorldModel;

// A steadier ball position for walking targets: the component-wise median of the last five
// different ball positions the world model reported (each vision report moves the estimate by
// the robot's own localisation error, often half a metre). The kick switch keeps using the
// latest report, which is what counts at the ball.
class BallTracker {
public:
    // Takes this cycle's ball position in and returns the median (field frame, metres).
    static math::Point update(const WorldModel& wm);
    // Forgets every position (start of process).
    static void resetState();

private:
    static std::deque<math::Point> recent;
};
