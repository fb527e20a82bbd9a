#include "commands/HingeJointCommand.h"

HingeJointCommand::HingeJointCommand() : Joint("") {}

HingeJointCommand::HingeJointCommand(const std::string& name, float currentAlpha)
    : Joint(name), jointCurrentAlphaValue(currentAlpha) {}

HingeJointCommand::HingeJointCommand(const std::string& name, const HingeJoint& perceived)
    : Joint(name), jointCurrentAlphaValue(perceived.getJointAlphaValue()), joint(perceived) {}

void HingeJointCommand::setJointTargetAlphaAndVelocityValue(float target, float speed,
                                                            float precisionDegrees) {
    jointTargetAlphaValue = target;
    jointVelocityValue = speed;
    precision = precisionDegrees;
}

void HingeJointCommand::setJointCommandAlphaValue(float lastVelocity) {
    jointCurrentVelocity = lastVelocity;
    jointCommandAlphaValue = getChangesCommand(jointCurrentAlphaValue, jointTargetAlphaValue,
                                               jointVelocityValue, joint, precision, lastVelocity);
}

void HingeJointCommand::setJointCommandAlphaValue() {
    jointCommandAlphaValue = getChangesCommand(jointCurrentAlphaValue, jointTargetAlphaValue,
                                               jointVelocityValue, joint, precision, 0.0F);
}
