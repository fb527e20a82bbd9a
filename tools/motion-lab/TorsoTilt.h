#pragma once

#include "GroundTruth.h"

// How far the torso leans, from its gyroscope and accelerometer: the gyroscope's rates are
// added up every cycle, and while the accelerometer reads about 1 g (the robot is not being
// thrown about) the sum is pulled gently towards the tilt that gravity shows. The accelerometer
// alone is useless while the robot falls or pushes itself up; the gyroscope alone drifts.
class TorsoTilt {
public:
    // One cycle: rates in degrees per second and acceleration in m/s^2, both in the torso frame
    // (x right, y forward, z up); `seconds` since the previous cycle.
    void update(const GroundTruth::Position& rates, const GroundTruth::Position& acceleration,
                double seconds);
    // Degrees: 0 upright, +90 lying face down, -90 lying on the back.
    double forward() const { return forwardDegrees; }
    // Degrees against the horizontal (-90 to 90), positive when leaning to the right; from the
    // accelerometer alone, smoothed over a few cycles.
    double right() const { return rightDegrees; }

private:
    double forwardDegrees = 0.0;
    double rightDegrees = 0.0;
    bool started = false;
};
