#pragma once

#include <concepts>
#include <numbers>

// Degrees and radians: the one place that converts between them. Joint, plan and skill angles
// are degrees; the geometry helpers and the head heading work in radians.
namespace math {

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kDegreesPerRadian = 180.0 / kPi;

// Degrees to radians the way the whole player converts: the angle / 180, times pi (in T).
template <std::floating_point T>
constexpr T toRadians(T degrees) {
    return degrees / static_cast<T>(180.0) * static_cast<T>(kPi);
}

// Radians to degrees: times 180 / pi (the quotient rounded to T once).
template <std::floating_point T>
constexpr T toDegrees(T radians) {
    return radians * static_cast<T>(kDegreesPerRadian);
}

// The single-precision factors of the body direction and of the feet kept parallel to the
// ground: pi / 180 rounded to float, and 57.2957764, one float step below 180 / pi rounded to
// float. Their products are part of the player's behaviour, so they stay exactly these.
inline constexpr float kRadiansPerDegreeF = 0.0174532924F;
inline constexpr float kDegreesPerRadianF = 57.2957764F;

}  // namespace math
