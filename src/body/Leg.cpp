#include "body/Leg.h"

#include <ostream>
#include <string>

#include "utilities/logging/Debugger.h"

Leg::Leg(Side side)
    : DynamicObject(math::Vector3<float>(), math::Vector3<float>(), math::Vector3<float>(), 0.0F,
                    0.0F),
      side(side) {
    const std::string prefix = std::string(sidePrefix(side)) + "le";
    for (unsigned int i = 0; i < jointCount; ++i) {
        joints[i] = HingeJoint(prefix + std::to_string(i + 1), 0.0F);
    }
}

Leg::Leg(const Leg* other) : Leg(*other) {}

unsigned int Leg::checkedIndex(unsigned int index) const {
    if (index < jointCount) {
        return index;
    }
    Debugger::logg("Main") << "Leg::getHingeJoint: no joint " << index << " in a leg of "
                           << jointCount << " joints; answering joint 0" << std::endl;
    return 0;
}

const HingeJoint& Leg::getHingeJoint(unsigned int index) const {
    return joints[checkedIndex(index)];
}

HingeJoint& Leg::getHingeJoint(unsigned int index) {
    return joints[checkedIndex(index)];
}

void Leg::setHingeJoint(unsigned int index, const HingeJoint& joint) {
    if (index < jointCount) {
        joints[index] = joint;
    }
}

bool Leg::isequal(const Leg& other, float tolerance) const {
    for (unsigned int i = 0; i < jointCount; ++i) {
        if (!joints[i].isequal(other.joints[i], tolerance)) {
            return false;
        }
    }
    return true;
}

bool Leg::isequal(const Leg* other, float tolerance) const {
    return isequal(*other, tolerance);
}
