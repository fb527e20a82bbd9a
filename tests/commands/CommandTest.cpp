#include <gtest/gtest.h>

#include <string>

#include "body/Body.h"
#include "commands/Command.h"
#include "commands/HingeJointCommand.h"
#include "commands/LegCommand.h"
#include "commands/SayCommand.h"
#include "support/Expected.h"

namespace {

using support::kHeldEffectorText;

template <class LimbT>
void setAngle(LimbT* limb, unsigned int index, float degrees) {
    HingeJoint joint(limb->getHingeJoint(index));
    joint.setJointAlphaValue(degrees);
    limb->setHingeJoint(index, joint);
}

class CommandTest : public ::testing::Test {
protected:
    void SetUp() override { Command::resetState(); }
    void TearDown() override { Command::resetState(); }
    Body body;
};

TEST_F(CommandTest, EffectorText) {
    setAngle(body.getRightLeg(), 2, 10.0F);
    Command command(&body);
    command.getHeadCommand().getNeckXCommand().setJointTargetAlphaAndVelocityValue(10, 5, 1);
    command.getHeadCommand().getNeckYCommand().setJointTargetAlphaAndVelocityValue(2, 5, 1);
    command.getRightArmCommand().getShoulderYCommand().setJointTargetAlphaAndVelocityValue(-30, 3,
                                                                                           1);
    command.getLeftArmCommand().getElbowCommand().setJointTargetAlphaAndVelocityValue(2.29183e-05F,
                                                                                      5, 1e-06F);
    // The right hip Y is perceived at 10 degrees and driven back to 0.
    command.getRightLegCommand().getHipYCommand().setJointTargetAlphaAndVelocityValue(0, 4, 0.1F);
    // A target of minus zero on a joint at 0 with no dead band gives a velocity of minus zero.
    command.getLeftLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(-0.0F, 5, 0);
    command.getSayCommand().setCurrentBall(3.47F, 12.05F);
    const std::string expected =
        "(he1 4.36332) (he2 0.872665)"
        "(rae1 0) (rae2 -2.61799) (rae3 0) (rae4 0)"
        "(lae1 0) (lae2 0) (lae3 1e-05) (lae4 0)"
        "(rle1 0) (rle2 0) (rle3 -3.49066) (rle4 0) (rle5 0) (rle6 0)"
        "(lle1 0) (lle2 0) (lle3 0) (lle4 -0) (lle5 0) (lle6 0)";
    command.setAllCommands();
    EXPECT_EQ(command.toString(), expected + "(Say 5a>7)");
    // Held back, a command (and its copy) sends the all-zero text.
    command.setSendCommand(false);
    EXPECT_EQ(Command(&command).toString(), kHeldEffectorText);
}

struct LawCase {
    const char* joint;
    float current, target, speed, precision;  // degrees, degrees per cycle, degrees
    float velocity;                           // radians per second
};

TEST(VelocityLaw, FullSpeedFarAwayThenHalfTheErrorThenNothing) {
    const LawCase cases[] = {
        {"lae1", 0, 10, 5, 1, 4.36332F},       {"lae1", 0, -10, 5, 1, -4.36332F},
        {"lae1", 20, 10, 5, 1, -4.36332F},     {"lae1", 0, 5, 5, 1, 4.36332F},
        {"lae1", 0, 3, 1, 0.1F, 0.872665F},    {"lae1", 0, 2.9F, 1, 0.1F, 1.26536F},
        {"lae1", 0, 2, 5, 1, 0.872665F},       {"lae1", 0, -2, 5, 1, -0.872665F},
        {"lae1", 0, 1, 5, 1, 0.436332F},       {"lae1", 0, 0.5F, 5, 1, 0},
        {"lae1", 3, 2.95F, 5, 0.1F, 0},        {"lae1", 0, 10, 0, 1, 0.872665F},
        {"lae1", 0, 10, 0.009F, 1, 0.872665F}, {"lae1", 0, 10, 0.01F, 1, 0.00872665F},
        {"lle5", 0, 0.2F, 5, 0.1F, 0},         {"rle6", 0, -0.29F, 5, 0.01F, 0},
        {"rle5", 0, 0.3F, 5, 0.1F, 0.1309F},   {"lle4", 0, 0.2F, 5, 0.1F, 0.0872665F},
    };
    for (const LawCase& c : cases) {
        HingeJointCommand command(c.joint, HingeJoint(c.joint, c.current));
        command.setJointTargetAlphaAndVelocityValue(c.target, c.speed, c.precision);
        command.setJointCommandAlphaValue();
        EXPECT_NEAR(command.getJointCommandAlphaValue(), c.velocity, 1e-5)
            << c.joint << " from " << c.current << " to " << c.target << " at " << c.speed;
    }
}

TEST_F(CommandTest, WaitHoldsUntilItsTimeHasPassed) {
    Command command(&body);
    const std::pair<float, bool> cases[] = {
        {10.0F, false}, {10.48F, false}, {10.5F, true}, {11.0F, true}};  // seconds, sent
    for (const auto& [now, sent] : cases) {
        command.doWait(0.5F, now);
        EXPECT_EQ(command.isSendCommand(), sent) << now;
    }
    Command::setTime(-1.0F);  // restarts the wait
    command.doWait(2.0F, 20.0F);
    EXPECT_FALSE(command.isSendCommand());
}

TEST(LegCorrections, FootParallelToTheGroundAndRaise) {
    Leg leg(Side(1));
    const float angles[] = {0, 10, 30, -60, 0, 0};
    for (unsigned int i = 0; i < 6; ++i) {
        setAngle(&leg, i, angles[i]);
    }
    LegCommand command(Side(1), leg);
    command.getHipXCommand().setJointTargetAlphaAndVelocityValue(40, 1, 1);  // not used
    command.footParallerGround(math::Vector3<float>(), 4.0F);
    EXPECT_NEAR(command.getFootYCommand().getJointTargetAlphaValue(), -10.0F, 1e-4);
    EXPECT_NEAR(command.getFootXCommand().getJointTargetAlphaValue(), 30.0F, 1e-4);
    EXPECT_EQ(command.getFootXCommand().getJointVelocityValue(), 4.0F);
    command.raise2(25.0F, 3.0F);
    EXPECT_EQ(command.getHipYCommand().getJointTargetAlphaValue(), 25.0F);
    EXPECT_EQ(command.getKneeCommand().getJointTargetAlphaValue(), -25.0F);
    EXPECT_EQ(command.getKneeCommand().getJointVelocityValue(), 3.0F);
}

}  // namespace
