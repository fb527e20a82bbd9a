#include "body/Body.h"

Body::Body()
    : head(sideHead),
      rightArm(sideRight),
      leftArm(sideLeft),
      rightLeg(sideRight),
      leftLeg(sideLeft) {}

HingeJoint& Body::getHingeJoint(BodyPart part, unsigned int index) {
    const Body& self = *this;
    return const_cast<HingeJoint&>(self.getHingeJoint(part, index));
}

const HingeJoint& Body::getHingeJoint(BodyPart part, unsigned int index) const {
    switch (part) {
        case BodyPart::LeftArm:
            return leftArm.getHingeJoint(index);
        case BodyPart::RightArm:
            return rightArm.getHingeJoint(index);
        case BodyPart::LeftLeg:
            return leftLeg.getHingeJoint(index);
        case BodyPart::RightLeg:
            return rightLeg.getHingeJoint(index);
        case BodyPart::Head:
            break;
    }
    return head.getHingeJoint(index);
}

bool Body::isequal(const Body& other, float tolerance) const {
    return rightArm.isequal(other.rightArm, tolerance) &&
           leftArm.isequal(other.leftArm, tolerance) &&
           rightLeg.isequal(other.rightLeg, tolerance) && leftLeg.isequal(other.leftLeg, tolerance);
}

bool Body::isequal(const Body* other, float tolerance) const {
    return isequal(*other, tolerance);
}
