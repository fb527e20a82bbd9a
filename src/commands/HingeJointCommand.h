#pragma once

#include <string>

#include "body/HingeJoint.h"
#include "commands/MasterCommand.h"

// The command for one hinge joint: its perceived angle, the key-frame target, the speed and
// dead band of the velocity law, and the velocity computed for sending. The joint name (from
// Joint) is the effector name.
class HingeJointCommand : public Joint, public MasterCommand {
public:
    HingeJointCommand();
    HingeJointCommand(const std::string& name, float currentAlpha);
    HingeJointCommand(const std::string& name, const HingeJoint& perceived);
    HingeJointCommand(const HingeJointCommand&) = default;
    HingeJointCommand& operator=(const HingeJointCommand&) = default;
    ~HingeJointCommand() override = default;

    [[nodiscard]] float getJointCurrentAlphaValue() const { return jointCurrentAlphaValue; }
    void setJointCurrentAlphaValue(float degrees) { jointCurrentAlphaValue = degrees; }
    [[nodiscard]] float getJointTargetAlphaValue() const { return jointTargetAlphaValue; }
    void setJointTargetAlphaValue(float degrees) { jointTargetAlphaValue = degrees; }
    [[nodiscard]] float getJointVelocityValue() const { return jointVelocityValue; }
    void setJointVelocityValue(float degreesPerCycle) { jointVelocityValue = degreesPerCycle; }
    [[nodiscard]] float getJointCurrentVelocity() const { return jointCurrentVelocity; }
    void setJointCurrentVelocity(float radPerSecond) { jointCurrentVelocity = radPerSecond; }
    [[nodiscard]] float getJointCommandAlphaValue() const { return jointCommandAlphaValue; }
    [[nodiscard]] float getPrecision() const { return precision; }
    [[nodiscard]] const HingeJoint& getHingeJoint() const { return joint; }
    void setHingeJoint(const HingeJoint& perceived) { joint = perceived; }

    // Target (degrees), speed (degrees per cycle) and dead band (degrees) of the law.
    void setJointTargetAlphaAndVelocityValue(float target, float speed, float precisionDegrees);

    // Computes the velocity to send; lastVelocity (the one sent in the previous command) is
    // kept as jointCurrentVelocity. The form without an argument leaves that field alone.
    void setJointCommandAlphaValue(float lastVelocity);
    void setJointCommandAlphaValue();

private:
    float jointCurrentAlphaValue = 0.0F;  // degrees, as perceived
    float jointTargetAlphaValue = 0.0F;   // degrees
    float jointVelocityValue = 0.0F;      // degrees per cycle
    float jointCommandAlphaValue = 0.0F;  // rad/s, printed in the effector text
    float precision = 0.0F;               // degrees
    float jointCurrentVelocity = 0.0F;    // rad/s sent in the previous command
    HingeJoint joint;                     // copy of the perceived joint
};
