#include "math/Geometry.h"

#include <limits>
#include "math/Angles.h"

namespace math {

namespace {
constexpr double kTwoPi = 2.0 * kPi;
// Beyond these magnitudes the step-by-step loops would take very long, or never end once a step
// is smaller than the float spacing, so such angles are first reduced in one go.
constexpr double kLargeRadians = 64.0 * kPi;
constexpr float kLargeDegrees = 36000.0F;
}  // namespace

float normalizeAngle(float angle) {
    if (std::isinf(angle)) {
        return std::numeric_limits<float>::quiet_NaN();  // no direction
    }
    if (std::fabs(static_cast<double>(angle)) > kLargeRadians) {
        angle = static_cast<float>(std::remainder(static_cast<double>(angle), kTwoPi));
    }
    // Each step is rounded back to float, as float arithmetic would do.
    while (static_cast<double>(angle) < -kPi) {
        angle = static_cast<float>(static_cast<double>(angle) + kTwoPi);
    }
    while (static_cast<double>(angle) > kPi) {
        angle = static_cast<float>(static_cast<double>(angle) - kTwoPi);
    }
    return angle;
}

float absoluteAngle(float angle) {
    if (std::isinf(angle)) {
        return std::numeric_limits<float>::quiet_NaN();  // no direction
    }
    if (std::fabs(angle) > kLargeDegrees) {
        angle = std::fmod(angle, 360.0F);
    }
    while (angle < 0.0F) {
        angle += 360.0F;
    }
    while (angle >= 180.0F) {
        angle -= 360.0F;
    }
    return angle;
}

float average(float a, float b, float c, float d) {
    return (a + b + c + d) * 0.25F;
}

}  // namespace math
