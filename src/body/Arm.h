#pragma once

#include <array>

#include "body/HingeJoint.h"
#include "body/Side.h"
#include "objects/DynamicObject.h"

/// An arm: four hinge joints named prefix + "ae1" .. "ae4" (prefix "r" on the right side, "l"
/// otherwise): shoulder pitch (0), shoulder roll (1), elbow yaw (2), elbow roll (3).
class Arm : public DynamicObject {
public:
    static constexpr unsigned int jointCount = 4;

    /// All joints named for `side`, angles 0.
    explicit Arm(Side side);
    Arm(const Arm& other) = default;
    explicit Arm(const Arm* other);
    Arm& operator=(const Arm& other) = default;

    Side getSide() const { return side; }
    void setSide(Side newSide) { side = newSide; }

    /// The joint at `index`; an index of 4 or more answers joint 0.
    const HingeJoint& getHingeJoint(unsigned int index) const;
    HingeJoint& getHingeJoint(unsigned int index);
    /// Copies `joint` into place `index`; an index of 4 or more changes nothing.
    void setHingeJoint(unsigned int index, const HingeJoint& joint);

    const HingeJoint& getShoulderX() const { return joints[0]; }
    void setShoulderX(const HingeJoint& joint) { joints[0] = joint; }
    const HingeJoint& getShoulderY() const { return joints[1]; }
    void setShoulderY(const HingeJoint& joint) { joints[1] = joint; }
    const HingeJoint& getElbow() const { return joints[2]; }
    void setElbow(const HingeJoint& joint) { joints[2] = joint; }
    const HingeJoint& getRotation() const { return joints[3]; }
    void setRotation(const HingeJoint& joint) { joints[3] = joint; }

    /// True when every joint's angle is within `tolerance` (degrees) of the other arm's.
    bool isequal(const Arm& other, float tolerance) const;
    bool isequal(const Arm* other, float tolerance) const;

private:
    Side side;
    std::array<HingeJoint, jointCount> joints;
};
