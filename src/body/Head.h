#pragma once

#include <array>

#include "body/HingeJoint.h"
#include "body/Side.h"
#include "objects/DynamicObject.h"

/// The head: two hinge joints, neck pan ("he1", index 0) and neck tilt ("he2", index 1).
class Head : public DynamicObject {
public:
    static constexpr unsigned int jointCount = 2;

    /// Both joints named, angles 0. The head's side is 0.
    explicit Head(Side side = sideHead);
    Head(const Head& other) = default;
    explicit Head(const Head* other);
    Head& operator=(const Head& other) = default;

    Side getSide() const { return side; }
    void setSide(Side newSide) { side = newSide; }

    /// The joint at `index`; an index of 2 or more answers joint 0.
    const HingeJoint& getHingeJoint(unsigned int index) const;
    HingeJoint& getHingeJoint(unsigned int index);
    /// Copies `joint` (name, angle, velocity and physical fields) into place `index`; an index
    /// of 2 or more changes nothing.
    void setHingeJoint(unsigned int index, const HingeJoint& joint);

    const HingeJoint& getNeckX() const { return joints[0]; }
    void setNeckX(const HingeJoint& joint) { joints[0] = joint; }
    const HingeJoint& getNeckY() const { return joints[1]; }
    void setNeckY(const HingeJoint& joint) { joints[1] = joint; }

    /// True when every joint's angle is within `tolerance` (degrees) of the other head's.
    bool isequal(const Head& other, float tolerance) const;
    bool isequal(const Head* other, float tolerance) const;

private:
    Side side;
    std::array<HingeJoint, jointCount> joints;
};
