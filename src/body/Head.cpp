#include "body/Head.h"

Head::Head(Side side)
    : DynamicObject(math::Vector3<float>(), math::Vector3<float>(), math::Vector3<float>(), 0.0F,
                    0.0F),
      side(side),
      joints{HingeJoint("he1", 0.0F), HingeJoint("he2", 0.0F)} {}

Head::Head(const Head* other) : Head(*other) {}

const HingeJoint& Head::getHingeJoint(unsigned int index) const {
    return index < jointCount ? joints[index] : joints[0];
}

HingeJoint& Head::getHingeJoint(unsigned int index) {
    return index < jointCount ? joints[index] : joints[0];
}

void Head::setHingeJoint(unsigned int index, const HingeJoint& joint) {
    if (index < jointCount) {
        joints[index] = joint;
    }
}

bool Head::isequal(const Head& other, float tolerance) const {
    for (unsigned int i = 0; i < jointCount; ++i) {
        if (!joints[i].isequal(other.joints[i], tolerance)) {
            return false;
        }
    }
    return true;
}

bool Head::isequal(const Head* other, float tolerance) const {
    return isequal(*other, tolerance);
}
