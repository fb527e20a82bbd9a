#include "worldmodel/TorsoAttitude.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "math/Angles.h"

namespace {

constexpr float kGravity = 9.81F;  // m/s^2

// The accelerometer shows the up direction only while the torso is not being pushed about:
// readings within 30 % of 1 g are trusted. In the recorded fall (tests/data/
// real-session-3200.txt) most readings while the robot flails on the ground are far outside
// this band; the gyroscope carries the estimate there.
constexpr float kTrustedBand = 0.3F;
// Share of the accelerometer's direction taken per trusted message (20 ms): the gyroscope's
// drift, a wrong start and a robot put down lying by the referee (which no gyroscope sees) are
// forgotten with a time constant of about 0.2 s: such a robot reads fallen about 0.3 s later.
// One wrong reading that gets past the median moves the estimate by a tenth of its angle.
constexpr float kAccelerometerWeight = 0.1F;
// Longest gap (seconds) over which the gyroscope's rates are added up; after a longer silence
// only the accelerometer is trusted.
constexpr float kMaxTurnStep = 0.1F;

// Fallen above 60 degrees held for 0.06 s (the message the tilt passes and three more). Walking
// for 40 s on the real server the estimate leaned at most 10.6 degrees; the goalkeeper's dive
// and every real fall end near 90 degrees. In the recorded fall the estimate passes 60 degrees
// 0.1 s before the robot lies flat on its back (9.26 s) and the robot reads fallen at 9.32 s;
// tipped over on the real server (20 trials) it read fallen 0.04 to 0.08 s after the motion
// lab's own estimate of the torso passed 60 degrees.
constexpr float kFallTilt = 60.0F;  // degrees
constexpr float kFallHold = 0.06F;  // seconds
// Up again below 35 degrees held for 0.04 s: flailing on its back for 55 s in the same
// recording, the robot never comes below 36 degrees, and a stand-up ends upright (under 10
// degrees). The hold is short because a stand-up that ends while the answer is still "fallen"
// is begun again at once, on a robot that is up: in the keeper's role trials on the real server
// a hold of 0.2 s let that happen.
constexpr float kUpTilt = 35.0F;  // degrees
constexpr float kUpHold = 0.04F;  // seconds
// Simulation times are sent with two decimals and read as floats.
constexpr float kTimeTolerance = 0.001F;  // seconds

template <std::size_t N>
float median(std::array<float, N> values, unsigned int count) {
    const auto middle = values.begin() + count / 2;
    std::nth_element(values.begin(), middle, values.begin() + count);
    return *middle;
}

math::Vector3<float> cross(const math::Vector3<float>& a, const math::Vector3<float>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

}  // namespace

void TorsoAttitude::update(float now, const math::Vector3<float>* reading,
                           const math::Vector3<float>* rates) {
    const float seconds = timed ? now - lastTime : 0.0F;
    timed = true;
    lastTime = now;
    if (known && rates != nullptr && seconds > 0.0F && seconds <= kMaxTurnStep) {
        turn(*rates, seconds);
    }
    if (reading != nullptr) {
        acceleration = *reading;
        correct(*reading);
    }
    if (known) {
        tilt = std::acos(std::clamp(up.z, -1.0F, 1.0F)) * math::kDegreesPerRadianF;
        decide(now);
    }
}

void TorsoAttitude::turn(const math::Vector3<float>& rates, float seconds) {
    // A direction fixed in the world, seen from a body turning at `rates`, turns the other way.
    const math::Vector3<float> omega = rates * math::kRadiansPerDegreeF;
    const math::Vector3<float> turned = up - cross(omega, up) * seconds;
    const float length = turned.length();
    if (std::isfinite(length) && length > 0.0F) {
        up = turned / length;
    }
}

void TorsoAttitude::correct(const math::Vector3<float>& reading) {
    readings[readingCount % kWindow] = reading;
    ++readingCount;
    const unsigned int count = std::min(readingCount, kWindow);
    std::array<float, kWindow> xs{};
    std::array<float, kWindow> ys{};
    std::array<float, kWindow> zs{};
    for (unsigned int i = 0; i < count; ++i) {
        xs[i] = readings[i].x;
        ys[i] = readings[i].y;
        zs[i] = readings[i].z;
    }
    const math::Vector3<float> filtered(median(xs, count), median(ys, count), median(zs, count));
    const float magnitude = filtered.length();
    if (!std::isfinite(magnitude) || std::fabs(magnitude - kGravity) > kTrustedBand * kGravity) {
        return;
    }
    const math::Vector3<float> shown = filtered / magnitude;
    if (!known) {
        // The server reads all zero before its first physics step; the first trusted reading
        // starts the estimate.
        up = shown;
        known = true;
        return;
    }
    const math::Vector3<float> pulled = up + (shown - up) * kAccelerometerWeight;
    const float length = pulled.length();
    if (length > 0.0F) {
        up = pulled / length;
    }
}

void TorsoAttitude::decide(float now) {
    const bool wanted = fallen ? tilt >= kUpTilt : tilt > kFallTilt;
    if (wanted == fallen) {
        pending = false;
        return;
    }
    if (!pending) {
        pending = true;
        pendingSince = now;
    }
    const float hold = wanted ? kFallHold : kUpHold;
    if (now - pendingSince >= hold - kTimeTolerance) {
        fallen = wanted;
        pending = false;
        if (fallen) {
            fallenSince = now;
        }
    }
}

float TorsoAttitude::getForwardLean() const {
    // Leaning forward turns the torso's forward axis down: the up direction seen from the torso
    // moves towards its back (negative y).
    return std::atan2(-up.y, up.z) * math::kDegreesPerRadianF;
}

TorsoAttitude::Lean TorsoAttitude::getLean() const {
    // The up direction leans away from the side that goes down.
    if (std::fabs(up.y) >= std::fabs(up.x)) {
        return up.y < 0.0F ? Lean::Forward : Lean::Backward;
    }
    return up.x < 0.0F ? Lean::Right : Lean::Left;
}

const char* TorsoAttitude::leanName(Lean lean) {
    switch (lean) {
        case Lean::Forward:
            return "forward";
        case Lean::Backward:
            return "backward";
        case Lean::Left:
            return "left";
        case Lean::Right:
            return "right";
    }
    return "";
}
