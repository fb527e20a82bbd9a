// The motion lab's reading of the torso's own senses: accelerometer and gyroscope lists from
// real server messages, and the tilt built from them.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "Angles.h"
#include "GroundTruth.h"
#include "TorsoTilt.h"

namespace {

// Message 411 of the recorded session (the robot falling): the two lists as the server wrote
// them, between the game state and the first joint.
const std::string kFalling =
    "(time (now 8.66))(GS (sl 0) (sr 0) (t 7.70) (pm PlayOn))(GYR (n torso) (rt -45.91 -21.47 "
    "-52.36))(ACC (n torso) (a -1.91 1.24 4.83))(HJ (n hj1) (ax -38.10))";

constexpr double kCycle = 0.02;  // seconds

GroundTruth::Position vec(double x, double y, double z) {
    return GroundTruth::Position{x, y, z};
}

}  // namespace

TEST(GroundTruthTest, ReadsTheTorsoSensesOfARealMessage) {
    const GroundTruth truth = GroundTruth::read(kFalling);
    ASSERT_TRUE(truth.acceleration.has_value());
    ASSERT_TRUE(truth.rates.has_value());
    EXPECT_DOUBLE_EQ(truth.acceleration->x, -1.91);
    EXPECT_DOUBLE_EQ(truth.acceleration->y, 1.24);
    EXPECT_DOUBLE_EQ(truth.acceleration->z, 4.83);
    EXPECT_DOUBLE_EQ(truth.rates->x, -45.91);
    EXPECT_DOUBLE_EQ(truth.rates->y, -21.47);
    EXPECT_DOUBLE_EQ(truth.rates->z, -52.36);
    // This server's robot description does not report positions.
    EXPECT_FALSE(truth.head.has_value());
}

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

TEST(TorsoTiltTest, DriftingGyroscopeIsPulledBackToGravity) {
    TorsoTilt tilt;
    tilt.update(vec(0, 0, 0), vec(0, 0, 9.81), kCycle);
    // Standing still upright with a gyroscope that reads 5 deg/s of forward pitch: after 10 s
    // the pull towards gravity holds the error to a few degrees instead of 50.
    for (int i = 0; i < 500; ++i) {
        tilt.update(vec(-5.0, 0, 0), vec(0, 0, 9.81), kCycle);
    }
    EXPECT_GT(tilt.forward(), 0.0);
    EXPECT_LT(tilt.forward(), 3.0);
}
