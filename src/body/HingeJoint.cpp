#include "body/HingeJoint.h"

#include <cmath>

HingeJoint::HingeJoint() : Joint(std::string()) {}

HingeJoint::HingeJoint(const std::string& name, float alpha) : Joint(name), alpha(alpha) {}

HingeJoint::HingeJoint(const HingeJoint* other) : HingeJoint(*other) {}

void HingeJoint::setJointAlphaValueAndVelocity(float newAlpha, float dt) {
    if (dt != 0.0F) {
        setVelocity(math::Vector3<float>((newAlpha - alpha) / dt, 0.0F, 0.0F));
    }
    alpha = newAlpha;
}

bool HingeJoint::isequal(const HingeJoint& other, float tolerance) const {
    return std::fabs(alpha - other.alpha) < tolerance;
}

bool HingeJoint::isequal(const HingeJoint* other, float tolerance) const {
    return isequal(*other, tolerance);
}
