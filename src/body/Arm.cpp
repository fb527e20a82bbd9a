#include "body/Arm.h"

#include <string>

Arm::Arm(Side side)
    : DynamicObject(math::Vector3<float>(), math::Vector3<float>(), math::Vector3<float>(), 0.0F,
                    0.0F),
      side(side) {
    const std::string prefix = std::string(sidePrefix(side)) + "ae";
    for (unsigned int i = 0; i < jointCount; ++i) {
        joints[i] = HingeJoint(prefix + std::to_string(i + 1), 0.0F);
    }
}

Arm::Arm(const Arm* other) : Arm(*other) {}

const HingeJoint& Arm::getHingeJoint(unsigned int index) const {
    return index < jointCount ? joints[index] : joints[0];
}

HingeJoint& Arm::getHingeJoint(unsigned int index) {
    return index < jointCount ? joints[index] : joints[0];
}

void Arm::setHingeJoint(unsigned int index, const HingeJoint& joint) {
    if (index < jointCount) {
        joints[index] = joint;
    }
}

bool Arm::isequal(const Arm& other, float tolerance) const {
    for (unsigned int i = 0; i < jointCount; ++i) {
        if (!joints[i].isequal(other.joints[i], tolerance)) {
            return false;
        }
    }
    return true;
}

bool Arm::isequal(const Arm* other, float tolerance) const {
    return isequal(*other, tolerance);
}
