#pragma once

#include <array>

#include "body/HingeJoint.h"
#include "body/Side.h"
#include "math/Vector3.h"
#include "objects/DynamicObject.h"

/// A leg: six hinge joints named prefix + "le1" .. "le6" (prefix "r" on the right side, "l"
/// otherwise): hip yaw-pitch (0), hip roll (1), hip pitch (2), knee (3), foot pitch (4), foot
/// roll (5); and the foot's last pressure reading (force and contact point, server units).
class Leg : public DynamicObject {
public:
    static constexpr unsigned int jointCount = 6;

    /// All joints named for `side`, angles 0; no foot pressure.
    explicit Leg(Side side);
    Leg(const Leg& other) = default;
    explicit Leg(const Leg* other);
    Leg& operator=(const Leg& other) = default;

    Side getSide() const { return side; }
    void setSide(Side newSide) { side = newSide; }

    /// The joint at `index`. No caller passes 6 or more; such an index is reported on "Main"
    /// and answered with joint 0, as the head and the arms do.
    const HingeJoint& getHingeJoint(unsigned int index) const;
    HingeJoint& getHingeJoint(unsigned int index);
    /// Copies `joint` into place `index`; an index of 6 or more changes nothing.
    void setHingeJoint(unsigned int index, const HingeJoint& joint);

    const HingeJoint& getRotation() const { return joints[0]; }
    void setRotation(const HingeJoint& joint) { joints[0] = joint; }
    const HingeJoint& getHipX() const { return joints[1]; }
    void setHipX(const HingeJoint& joint) { joints[1] = joint; }
    const HingeJoint& getHipY() const { return joints[2]; }
    void setHipY(const HingeJoint& joint) { joints[2] = joint; }
    const HingeJoint& getKnee() const { return joints[3]; }
    void setKnee(const HingeJoint& joint) { joints[3] = joint; }
    const HingeJoint& getFootX() const { return joints[4]; }
    void setFootX(const HingeJoint& joint) { joints[4] = joint; }
    const HingeJoint& getFootY() const { return joints[5]; }
    void setFootY(const HingeJoint& joint) { joints[5] = joint; }

    const math::Vector3<float>& getFRPForce() const { return frpForce; }
    void setFRPForce(const math::Vector3<float>& force) { frpForce = force; }
    const math::Vector3<float>& getFRPContactPoint() const { return frpContactPoint; }
    void setFRPContactPoint(const math::Vector3<float>& point) { frpContactPoint = point; }

    /// True when every joint's angle is within `tolerance` (degrees) of the other leg's.
    bool isequal(const Leg& other, float tolerance) const;
    bool isequal(const Leg* other, float tolerance) const;

private:
    unsigned int checkedIndex(unsigned int index) const;

    Side side;
    std::array<HingeJoint, jointCount> joints;
    math::Vector3<float> frpForce;
    math::Vector3<float> frpContactPoint;
};
