#pragma once

#include <array>

#include "math/Vector3.h"

/// How the torso stands in space, from its accelerometer and gyroscope: the tilt from vertical
/// (degrees), the direction of the lean and whether the robot lies on the ground.
///
/// Torso frame: x to the right, y forward, z up. An upright robot standing still reads about
/// (0, 0, 9.81) m/s^2: the accelerometer shows the world's up direction. The estimate is that
/// up direction as a unit vector in the torso frame. Every message turns it by the gyroscope's
/// rates (degrees per second) and pulls it a little towards the direction the accelerometer
/// shows, as long as the accelerometer reads about 1 g. Each accelerometer axis is first the
/// median of the last five readings, so one spiked reading (a foot strike, a kick, a collision)
/// never reaches the estimate; the gyroscope carries it through falls and flailing, where the
/// accelerometer is thrown about.
///
/// Fallen once the tilt stays above 60 degrees for 0.06 s; up again once it stays below 35
/// degrees for 0.04 s.
class TorsoAttitude {
public:
    /// Where the torso leans: its front, back, left or right side towards the ground.
    enum class Lean { Forward, Backward, Left, Right };

    /// One perceptor message at simulation time `now` (seconds). `reading` (m/s^2) and
    /// `rates` (degrees per second) are null when the message does not carry them; a message
    /// without "ACC" keeps the previous reading.
    void update(float now, const math::Vector3<float>* reading, const math::Vector3<float>* rates);

    /// Tilt of the torso's z axis from vertical (degrees): 0 upright, 90 lying, 180 upside
    /// down. 0 until the accelerometer has read about 1 g once.
    float getTilt() const { return tilt; }
    Lean getLean() const;
    /// How far the torso leans forward (degrees, negative backwards), seen from the side: its
    /// z axis against vertical in its own forward-up plane; +90 lying face down, -90 on its back.
    float getForwardLean() const;
    /// The side on which a fallen robot lies, seen front to back: true on its back (also when
    /// it lies on a side turned more to the back than to the front).
    bool liesOnBack() const { return up.y > 0.0F; }
    bool isFallen() const { return fallen; }
    /// The simulation time (seconds) of the message with which the answer last became fallen.
    float getFallenSince() const { return fallenSince; }
    /// The world's up direction in the torso frame (unit vector).
    const math::Vector3<float>& getUp() const { return up; }
    /// The last accelerometer reading (m/s^2).
    const math::Vector3<float>& getAcceleration() const { return acceleration; }

    /// Lean in a few letters for logs: "forward", "backward", "left", "right".
    static const char* leanName(Lean lean);

private:
    void turn(const math::Vector3<float>& rates, float seconds);
    void correct(const math::Vector3<float>& reading);
    void decide(float now);

    static constexpr unsigned int kWindow = 5;

    math::Vector3<float> up{0.0F, 0.0F, 1.0F};
    math::Vector3<float> acceleration;
    std::array<math::Vector3<float>, kWindow> readings{};
    unsigned int readingCount = 0;
    bool known = false;
    float tilt = 0.0F;  // degrees
    bool fallen = false;
    float fallenSince = 0.0F;  // seconds
    bool timed = false;
    float lastTime = 0.0F;  // seconds
    // The answer is about to change: the tilt has been on the other side since this time.
    bool pending = false;
    float pendingSince = 0.0F;  // seconds
};
