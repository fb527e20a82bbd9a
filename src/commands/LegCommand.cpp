#include "commands/LegCommand.h"

#include "body/JointNames.h"
#include "math/Angles.h"
#include "math/Geometry.h"

LegCommand::LegCommand() : LegCommand(Side(1), Leg(Side(1))) {}

LegCommand::LegCommand(Side side, const Leg& leg)
    : LimbCommand(side, leg, JointNames::effectorNames(JointNames::legOf(side))) {}

LegCommand::LegCommand(Side side, const Leg* leg) : LegCommand(side, *leg) {}

LegCommand::LegCommand(Side side, const Leg& leg, const LegCommand& last) : LegCommand(side, leg) {
    setCurrentLastLegCommand(last);
}

LegCommand::LegCommand(Side side, const Leg* leg, const LegCommand& last)
    : LegCommand(side, *leg, last) {}

void LegCommand::footParallerGround(math::Vector3<float> /*position*/, float speed) {
    const float hipX = getHipXCommand().getJointCurrentAlphaValue();
    const float hipY = getHipYCommand().getJointCurrentAlphaValue();
    const float knee = getKneeCommand().getJointCurrentAlphaValue();
    constexpr float kToRadians = -math::kRadiansPerDegreeF;  // and the sign turned
    const float footY = math::kDegreesPerRadianF * math::normalizeAngle(kToRadians * hipX);
    const float footX =
        math::kDegreesPerRadianF * math::normalizeAngle(kToRadians * knee + kToRadians * hipY);
    getFootYCommand().setJointTargetAlphaAndVelocityValue(footY, speed, 0.01F);
    getFootXCommand().setJointTargetAlphaAndVelocityValue(footX, speed, 0.01F);
}

void LegCommand::raise2(float value, float speed) {
    getHipYCommand().setJointTargetAlphaAndVelocityValue(value, speed, 0.1F);
    getKneeCommand().setJointTargetAlphaAndVelocityValue(-value, speed, 0.1F);
}
