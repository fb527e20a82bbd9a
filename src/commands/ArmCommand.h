#pragma once

#include "body/Arm.h"
#include "commands/LimbCommand.h"

// Commands for the four joints of one arm, named "lae1".."lae4" or "rae1".."rae4".
class ArmCommand : public LimbCommand<Arm, 4> {
public:
    ArmCommand();
    ArmCommand(Side side, const Arm& arm);
    ArmCommand(Side side, const Arm* arm);
    ArmCommand(Side side, const Arm& arm, const ArmCommand& last);
    ArmCommand(Side side, const Arm* arm, const ArmCommand& last);

    HingeJointCommand& getShoulderXCommand() { return getHingeJointCommand(0); }
    HingeJointCommand& getShoulderYCommand() { return getHingeJointCommand(1); }
    HingeJointCommand& getElbowCommand() { return getHingeJointCommand(2); }
    HingeJointCommand& getRotationCommand() { return getHingeJointCommand(3); }

    void setCurrentArm(const Arm& arm) { setCurrentLimb(arm); }
    void setCurrentLastArmCommand(const ArmCommand& last) { setCurrentLastLimbCommand(last); }
    [[nodiscard]] Arm toArm() const { return toLimb(); }
};
