#pragma once

#include "body/Leg.h"
#include "commands/LimbCommand.h"
#include "math/Vector3.h"

// Commands for the six joints of one leg, named "lle1".."lle6" or "rle1".."rle6", and the two
// balance corrections a skill step can switch on.
class LegCommand : public LimbCommand<Leg, 6> {
public:
    LegCommand();
    LegCommand(Side side, const Leg& leg);
    LegCommand(Side side, const Leg* leg);
    LegCommand(Side side, const Leg& leg, const LegCommand& last);
    LegCommand(Side side, const Leg* leg, const LegCommand& last);

    HingeJointCommand& getRotationCommand() { return getHingeJointCommand(0); }
    HingeJointCommand& getHipXCommand() { return getHingeJointCommand(1); }
    HingeJointCommand& getHipYCommand() { return getHingeJointCommand(2); }
    HingeJointCommand& getKneeCommand() { return getHingeJointCommand(3); }
    HingeJointCommand& getFootXCommand() { return getHingeJointCommand(4); }
    HingeJointCommand& getFootYCommand() { return getHingeJointCommand(5); }

    void setCurrentLeg(const Leg& leg) { setCurrentLimb(leg); }
    void setCurrentLastLegCommand(const LegCommand& last) { setCurrentLastLimbCommand(last); }
    [[nodiscard]] Leg toLeg() const { return toLimb(); }

    // Keeps the foot parallel to the ground: foot Y (joint 5) targets minus the current hip X
    // angle, foot X (joint 4) minus the sum of the current hip Y and knee angles, both wrapped
    // into -180..180 degrees, with the given speed (degrees per cycle) and precision 0.01.
    // position is not used.
    void footParallerGround(math::Vector3<float> position, float speed);

    // Raises the leg: hip Y (joint 2) targets value, the knee (joint 3) minus value (degrees),
    // with the given speed (degrees per cycle) and precision 0.1.
    void raise2(float value, float speed);
};
