#pragma once

#include <string>

#include "body/Joint.h"

/// A hinge joint: one angle `alpha` in degrees, as the server reports it. Its angular velocity
/// is the x component of the inherited velocity (y and z stay 0), in degrees per second when
/// the time step is given in seconds.
class HingeJoint : public Joint {
public:
    /// Empty name, angle 0.
    HingeJoint();
    HingeJoint(const std::string& name, float alpha);
    HingeJoint(const HingeJoint& other) = default;
    explicit HingeJoint(const HingeJoint* other);
    HingeJoint& operator=(const HingeJoint& other) = default;

    float getJointAlphaValue() const { return alpha; }
    void setJointAlphaValue(float newAlpha) { alpha = newAlpha; }

    /// Stores a new reading: the velocity becomes ((alpha - previous angle) / dt, 0, 0), then
    /// the angle becomes alpha. A time step of 0 (two messages with the same time) gives no
    /// rate of change, so the previous velocity is kept and only the angle is stored.
    void setJointAlphaValueAndVelocity(float newAlpha, float dt);

    /// True when the two angles differ by strictly less than `tolerance` (degrees).
    bool isequal(const HingeJoint& other, float tolerance) const;
    bool isequal(const HingeJoint* other, float tolerance) const;

private:
    float alpha = 0.0F;
};
