#pragma once

#include "body/Arm.h"
#include "body/Head.h"
#include "body/HingeJoint.h"
#include "body/JointNames.h"
#include "body/Leg.h"

/// The perceived state of the robot's 22 hinge joints and its feet, by limb.
class Body {
public:
    /// Head(0), right arm (2), left arm (1), right leg (2), left leg (1); all angles 0.
    Body();

    Head* getHead() { return &head; }
    const Head* getHead() const { return &head; }
    Arm* getRightArm() { return &rightArm; }
    const Arm* getRightArm() const { return &rightArm; }
    Arm* getLeftArm() { return &leftArm; }
    const Arm* getLeftArm() const { return &leftArm; }
    Leg* getRightLeg() { return &rightLeg; }
    const Leg* getRightLeg() const { return &rightLeg; }
    Leg* getLeftLeg() { return &leftLeg; }
    const Leg* getLeftLeg() const { return &leftLeg; }

    void setHead(const Head& newHead) { head = newHead; }
    void setRightArm(const Arm& arm) { rightArm = arm; }
    void setLeftArm(const Arm& arm) { leftArm = arm; }
    void setRightLeg(const Leg& leg) { rightLeg = leg; }
    void setLeftLeg(const Leg& leg) { leftLeg = leg; }

    /// Joint `index` of limb `part` (the place a row of `JointNames::table()` names). An index
    /// beyond the limb answers as the limb's `getHingeJoint` does.
    HingeJoint& getHingeJoint(BodyPart part, unsigned int index);
    const HingeJoint& getHingeJoint(BodyPart part, unsigned int index) const;

    /// True when both arms and both legs (in that order: right arm, left arm, right leg, left
    /// leg) are equal within `tolerance` (degrees). The head is not compared.
    bool isequal(const Body& other, float tolerance) const;
    bool isequal(const Body* other, float tolerance) const;

private:
    Head head;
    Arm rightArm;
    Arm leftArm;
    Leg rightLeg;
    Leg leftLeg;
};
