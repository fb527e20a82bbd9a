#include "skills/dive/DivePosture.h"

#include <array>

#include "body/Body.h"
#include "commands/Command.h"
#include "worldmodel/WorldModel.h"

namespace dive {

namespace {

struct JointTarget {
    float angle;  // degrees
    float speed;  // degrees per cycle
};

constexpr float kJointPrecision = 0.1F;  // degrees
constexpr float kDivePrecision = 2.0F;   // degrees
constexpr float kDiveDuration = 20.0F;   // seconds

// Legs, joints 0 to 5, of the leg on the diving side and of the other leg.
constexpr std::array<JointTarget, 6> kDivingLeg = {
    {{0.0F, 0.0F}, {0.0F, 0.0F}, {30.0F, 1.0F}, {-30.0F, 7.0F}, {30.0F, 1.0F}, {0.0F, 7.0F}}};
constexpr std::array<JointTarget, 6> kOtherLeg = {
    {{0.0F, 0.0F}, {0.0F, 0.0F}, {30.0F, 1.0F}, {-60.0F, 7.0F}, {30.0F, 1.0F}, {0.0F, 7.0F}}};
// Foot Y of the diving leg, turned outward: negative for the left leg, positive for the right.
constexpr float kDivingFootOutward = 30.0F;
// Arms, joints 0 to 3, and head, joints 0 and 1, alike on both sides.
constexpr std::array<JointTarget, 4> kArm = {
    {{90.0F, 7.0F}, {0.0F, 0.0F}, {0.0F, 7.0F}, {0.0F, 7.0F}}};
constexpr std::array<JointTarget, 2> kHead = {{{0.0F, 1.0F}, {0.0F, 1.0F}}};

template <typename LimbCommand, std::size_t N>
void setLimb(LimbCommand& limb, const std::array<JointTarget, N>& targets) {
    for (unsigned int i = 0; i < N; ++i) {
        limb.getHingeJointCommand(i).setJointTargetAlphaAndVelocityValue(
            targets[i].angle, targets[i].speed, kJointPrecision);
    }
}

}  // namespace

Command* buildDiveCommand(const WorldModel& wm, bool leftDive) {
    const Body body(*wm.getSelf()->getBody());
    auto* command = new Command(&body);
    command->setPrecisionValue(kDivePrecision);

    std::array<JointTarget, 6> left = leftDive ? kDivingLeg : kOtherLeg;
    std::array<JointTarget, 6> right = leftDive ? kOtherLeg : kDivingLeg;
    if (leftDive) {
        left[5].angle = -kDivingFootOutward;
    } else {
        right[5].angle = kDivingFootOutward;
    }
    setLimb(command->getLeftLegCommand(), left);
    setLimb(command->getRightLegCommand(), right);
    setLimb(command->getLeftArmCommand(), kArm);
    setLimb(command->getRightArmCommand(), kArm);
    setLimb(command->getHeadCommand(), kHead);
    return command;
}

bool isDiveOver(float start, float now) {
    return now - start > kDiveDuration;
}

}  // namespace dive
