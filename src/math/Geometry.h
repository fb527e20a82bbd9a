#pragma once

#include <cmath>

#include "math/Vector3.h"

namespace math {

// An angle in radians brought into [-pi, pi] by steps of two pi, comparing with double-precision
// pi and rounding to float after each step (so the float nearest pi, just above it, wraps).
float normalizeAngle(float angle);

// An angle in degrees brought into [-180, 180).
float absoluteAngle(float angle);

// (a + b + c + d) * 0.25.
float average(float a, float b, float c, float d);

// Signed angle in radians (despite the name) from the direction a->b to the direction c->b,
// measured in the x-y plane. Collinear a, b, c with b between them gives pi or -pi.
template <typename T>
T getDegree(Vector3<T> a, Vector3<T> b, Vector3<T> c) {
    const T t1 = normalizeAngle(
        static_cast<T>(std::atan2(static_cast<double>(b.y - a.y), static_cast<double>(b.x - a.x))));
    const T t2 = normalizeAngle(
        static_cast<T>(std::atan2(static_cast<double>(b.y - c.y), static_cast<double>(b.x - c.x))));
    return normalizeAngle(t2 - t1);
}

}  // namespace math
