#include "commands/LegCommand.h"

#include "math/Geometry.h"

namespace {

constexpr float kRadToDeg = 57.295776F;
constexpr float kDegToRad = 0.017453292F;

}  // namespace

LegCommand::LegCommand() : LegCommand(Side(1), Leg(Side(1))) {}

LegCommand::LegCommand(Side side, const Leg& leg)
    : LimbCommand(side, leg, sidedNames(side, "le")) {}

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
    const float footY = kRadToDeg * math::normalizeAngle(-kDegToRad * hipX);
    const float footX = kRadToDeg * math::normalizeAngle(-kDegToRad * knee + -kDegToRad * hipY);
    getFootYCommand().setJointTargetAlphaAndVelocityValue(footY, speed, 0.01F);
    getFootXCommand().setJointTargetAlphaAndVelocityValue(footX, speed, 0.01F);
}

void LegCommand::raise2(float value, float speed) {
    getHipYCommand().setJointTargetAlphaAndVelocityValue(value, speed, 0.1F);
    getKneeCommand().setJointTargetAlphaAndVelocityValue(-value, speed, 0.1F);
}
