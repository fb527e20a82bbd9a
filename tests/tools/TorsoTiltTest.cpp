// The motion lab's torso tilt, built from the accelerometer and the gyroscope.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Angles.h"
#include "GroundTruth.h"
#include "TorsoTilt.h"

namespace {

constexpr double kCycle = 0.02;  // seconds

GroundTruth::Position vec(double x, double y, double z) {
    return GroundTruth::Position{x, y, z};
}

}  // namespace

TEST(TorsoTiltTest, StartsFromGravityOnceTheServerReportsIt) {
    TorsoTilt tilt;
    // Before the first physics step the server reports no acceleration at all: nothing known.
    tilt.update(vec(0, 0, 0), vec(0, 0, 0), kCycle);
    EXPECT_DOUBLE_EQ(tilt.forward(), 0.0);
    // Lying face down: gravity pushes along the torso's backward axis.
    tilt.update(vec(0, 0, 0), vec(0, -9.81, 0), kCycle);
    EXPECT_NEAR(tilt.forward(), 90.0, 1e-9);
    TorsoTilt back;
    back.update(vec(0, 0, 0), vec(0, 9.81, 0), kCycle);
    EXPECT_NEAR(back.forward(), -90.0, 1e-9);
}

TEST(TorsoTiltTest, FollowsTheGyroscopeWhileTheAccelerometerIsThrownAbout) {
    TorsoTilt tilt;
    tilt.update(vec(0, 0, 0), vec(0, 0, 9.81), kCycle);
    // Pitching forward at 90 deg/s for half a second, with the accelerometer reading a push
    // far from 1 g: only the gyroscope counts.
    for (int i = 0; i < 25; ++i) {
        tilt.update(vec(-90.0, 0, 0), vec(0, 20.0, 30.0), kCycle);
    }
    EXPECT_NEAR(tilt.forward(), 45.0, 1e-6);
}
