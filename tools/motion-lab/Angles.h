#pragma once

#include "math/Angles.h"

// Radians per degree.
inline constexpr double kDegToRad = math::kPi / 180.0;

// An angle in degrees brought into (-180, 180].
inline double wrapDegrees(double angle) {
    while (angle > 180.0) {
        angle -= 360.0;
    }
    while (angle <= -180.0) {
        angle += 360.0;
    }
    return angle;
}
