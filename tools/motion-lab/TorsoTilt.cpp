#include "TorsoTilt.h"

#include <cmath>

#include "Angles.h"

namespace {

constexpr double kGravity = 9.81;              // m/s^2
constexpr double kTrustedGravityBand = 0.15;   // accelerometer trusted within 15 % of 1 g
constexpr double kAccelerometerWeight = 0.05;  // share of the gravity tilt taken per cycle

}  // namespace

void TorsoTilt::update(const GroundTruth::Position& rates,
                       const GroundTruth::Position& acceleration, double seconds) {
    const GroundTruth::Position& a = acceleration;
    const double magnitude = std::sqrt(a.x * a.x + a.y * a.y + a.z * a.z);
    const bool trusted = std::fabs(magnitude - kGravity) < kTrustedGravityBand * kGravity;
    const double gravityForward = std::atan2(-a.y, a.z) / kDegToRad;
    // Sideways against the horizontal, so that it stays meaningful for a robot lying down.
    const double gravityRight = std::atan2(-a.x, std::hypot(a.y, a.z)) / kDegToRad;
    if (!started) {
        // The server reports zero acceleration before its first physics step.
        if (!trusted) {
            return;
        }
        forwardDegrees = gravityForward;
        rightDegrees = gravityRight;
        started = true;
        return;
    }
    // Turning about the right-pointing x axis lifts the front: leaning back.
    forwardDegrees = wrapDegrees(forwardDegrees - rates.x * seconds);
    if (trusted) {
        forwardDegrees = wrapDegrees(
            forwardDegrees + kAccelerometerWeight * wrapDegrees(gravityForward - forwardDegrees));
        rightDegrees += kAccelerometerWeight * (gravityRight - rightDegrees);
    }
}
