#include <gtest/gtest.h>

#include <string>

#include "body/Body.h"
#include "commands/Command.h"

namespace {

const std::string kZeroVelocities =
    "(he1 0) (he2 0)(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
    "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 0) (rle6 0)"
    "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 0) (lle6 0)";

const std::string kHeldText =
    "(he1 0) (he2 0)(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
    "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 -0) (rle6 0)"
    "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 -0) (lle6 0)";

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

TEST_F(CommandTest, FreshCommandPrintsZeroVelocitiesAndTheEmptySayPart) {
    Command command(&body);
    EXPECT_TRUE(command.isSendCommand());
    command.setAllCommands();
    EXPECT_EQ(command.toString(), kZeroVelocities + "(Say )");
}

TEST_F(CommandTest, FreshCommandHasEveryFlagAndValueCleared) {
    const Command command(&body);
    EXPECT_FALSE(command.isWait());
    EXPECT_FALSE(command.isLeftFootParallerGround());
    EXPECT_FALSE(command.isRightFootParallerGround());
    EXPECT_FALSE(command.isLeftRaise2());
    EXPECT_FALSE(command.isRightRaise2());
    EXPECT_FALSE(command.isPrecision());
    EXPECT_EQ(command.getLeftFootParallerGroundVelocityValue(), 0.0F);
    EXPECT_EQ(command.getRightFootParallerGroundVelocityValue(), 0.0F);
    EXPECT_EQ(command.getPrecisionValue(), 0.0F);
    EXPECT_EQ(command.getWaitValue(), 0.0F);
    EXPECT_EQ(command.getLeftRaise2Value(), 0.0F);
    EXPECT_EQ(command.getRightRaise2Value(), 0.0F);
    EXPECT_EQ(command.getLeftRaise2Speed(), 0.0F);
    EXPECT_EQ(command.getRightRaise2Speed(), 0.0F);
    EXPECT_EQ(command.getLoopStepNumber(), 0U);
    EXPECT_EQ(command.getSayCommand().getSendStr(), "");
}

TEST_F(CommandTest, HeldCommandPrintsTheAllZeroTextWhateverItsTargets) {
    Command command(&body);
    command.getHeadCommand().getNeckXCommand().setJointTargetAlphaAndVelocityValue(50, 5, 1);
    command.getLeftLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(-40, 5, 1);
    command.getSayCommand().setSendStr("hello");
    command.setAllCommands();
    command.setSendCommand(false);
    EXPECT_EQ(command.toString(), kHeldText);
    EXPECT_EQ(Command::kAllZeroText, kHeldText);
}

TEST_F(CommandTest, EffectorTextFormatsEachVelocityLikeADefaultStream) {
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
    // The foot joints stop within 0.3 degrees whatever the precision.
    command.getLeftLegCommand().getFootXCommand().setJointTargetAlphaAndVelocityValue(0.2F, 5, 0);
    command.setAllCommands();
    EXPECT_EQ(command.toString(),
              "(he1 4.36332) (he2 0.872665)"
              "(rae1 0) (rae2 -2.61799) (rae3 0) (rae4 0)"
              "(lae1 0) (lae2 0) (lae3 1e-05) (lae4 0)"
              "(rle1 0) (rle2 0) (rle3 -3.49066) (rle4 0) (rle5 0) (rle6 0)"
              "(lle1 0) (lle2 0) (lle3 0) (lle4 -0) (lle5 0) (lle6 0)"
              "(Say )");
}

TEST_F(CommandTest, SayTextIsAppendedAfterTheLeftLeg) {
    Command command(&body);
    command.getSayCommand().setCurrentBall(3.47F, 12.05F);
    command.setAllCommands();
    EXPECT_EQ(command.toString(), kZeroVelocities + "(Say 5a>7)");
}

TEST_F(CommandTest, VelocitiesAreOnlyComputedBySetAllCommandsWhenSending) {
    Command command(&body);
    command.getRightArmCommand().getShoulderXCommand().setJointTargetAlphaAndVelocityValue(10, 5,
                                                                                           1);
    EXPECT_EQ(command.toString(), kZeroVelocities + "(Say )");  // nothing computed yet
    command.setSendCommand(false);
    command.setAllCommands();
    command.setSendCommand(true);
    EXPECT_EQ(command.toString(), kZeroVelocities + "(Say )");
    command.setAllCommands();
    EXPECT_EQ(command.getRightArmCommand().getShoulderXCommand().getJointCommandAlphaValue(),
              command.getRightArmCommand().getHingeJointCommand(0).getJointCommandAlphaValue());
    EXPECT_NE(command.toString().find("(rae1 4.36332)"), std::string::npos);
}

TEST_F(CommandTest, HeadJointsAreComputedEvenWhenHeld) {
    Command command(&body);
    command.getHeadCommand().getNeckXCommand().setJointTargetAlphaAndVelocityValue(-10, 5, 1);
    command.getLeftArmCommand().getShoulderXCommand().setJointTargetAlphaAndVelocityValue(10, 5, 1);
    command.setSendCommand(false);
    command.setHeadJointsCommands();
    command.setSendCommand(true);
    EXPECT_EQ(command.getHeadCommand().toString(), "(he1 -4.36332) (he2 0)");
    EXPECT_EQ(command.getLeftArmCommand().toString(), "(lae1 0) (lae2 0) (lae3 0) (lae4 0)");
}

TEST_F(CommandTest, CopyFromPointerKeepsTheTextButNotTheStepFlags) {
    setAngle(body.getLeftArm(), 1, 20.0F);
    Command original(&body);
    original.getLeftArmCommand().getShoulderYCommand().setJointTargetAlphaAndVelocityValue(80, 5,
                                                                                           0.5F);
    original.getRightLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(-1, 2, 0.1F);
    original.getSayCommand().setSendStr("2222");
    original.setWait(true);
    original.setWaitValue(0.5F);
    original.setLeftFootParallerGround(true);
    original.setRightFootParallerGround(true);
    original.setLeftFootParallerGroundVelocityValue(3);
    original.setRightFootParallerGroundVelocityValue(3);
    original.setLeftRaise2(true);
    original.setRightRaise2(true);
    original.setLeftRaise2Value(20);
    original.setRightRaise2Value(20);
    original.setLeftRaise2Speed(2);
    original.setRightRaise2Speed(2);
    original.setPrecision(true);
    original.setPrecisionValue(4);
    original.setLoopStepNumber(3);
    original.setAllCommands();

    Command copy(&original);
    EXPECT_EQ(copy.toString(), original.toString());
    EXPECT_NE(copy.toString().find("(lae2 4.36332)"), std::string::npos);
    EXPECT_NE(copy.toString().find("(Say 2222)"), std::string::npos);
    EXPECT_EQ(copy.getLeftArmCommand().getShoulderYCommand().getJointTargetAlphaValue(), 80.0F);
    EXPECT_EQ(copy.getLeftArmCommand().getShoulderYCommand().getJointCurrentAlphaValue(), 20.0F);
    EXPECT_TRUE(copy.isSendCommand());
    EXPECT_FALSE(copy.isWait());
    EXPECT_EQ(copy.getWaitValue(), 0.0F);
    EXPECT_FALSE(copy.isLeftFootParallerGround());
    EXPECT_FALSE(copy.isRightFootParallerGround());
    EXPECT_EQ(copy.getLeftFootParallerGroundVelocityValue(), 0.0F);
    EXPECT_EQ(copy.getRightFootParallerGroundVelocityValue(), 0.0F);
    EXPECT_FALSE(copy.isLeftRaise2());
    EXPECT_FALSE(copy.isRightRaise2());
    EXPECT_EQ(copy.getLeftRaise2Value(), 0.0F);
    EXPECT_EQ(copy.getRightRaise2Value(), 0.0F);
    EXPECT_EQ(copy.getLeftRaise2Speed(), 0.0F);
    EXPECT_EQ(copy.getRightRaise2Speed(), 0.0F);
    EXPECT_FALSE(copy.isPrecision());
    EXPECT_EQ(copy.getPrecisionValue(), 0.0F);
    EXPECT_EQ(copy.getLoopStepNumber(), 0U);

    // A held command stays held in the copy; the copy is independent of the original.
    original.setSendCommand(false);
    Command held(&original);
    EXPECT_EQ(held.toString(), kHeldText);
    copy.getLeftArmCommand().getShoulderYCommand().setJointTargetAlphaAndVelocityValue(0, 1, 1);
    EXPECT_EQ(original.getLeftArmCommand().getShoulderYCommand().getJointTargetAlphaValue(), 80.0F);
}

TEST_F(CommandTest, PreviousVelocitiesComeFromTheLastCommand) {
    Command last(&body);
    last.getLeftLegCommand().getKneeCommand().setJointTargetAlphaAndVelocityValue(10, 5, 1);
    last.getHeadCommand().getNeckYCommand().setJointTargetAlphaAndVelocityValue(-2, 5, 1);
    last.setAllCommands();

    const Command next(&body, last);
    EXPECT_NEAR(next.getLeftLegCommand().getLastVelocity(3), 4.36332F, 1e-5);
    EXPECT_NEAR(next.getHeadCommand().getLastVelocity(1), -0.872665F, 1e-5);
    EXPECT_EQ(next.getRightLegCommand().getLastVelocity(3), 0.0F);

    Command refreshed(&body);
    refreshed.setCurrentLastCommand(&last);
    EXPECT_NEAR(refreshed.getLeftLegCommand().getLastVelocity(3), 4.36332F, 1e-5);
    refreshed.setCurrentLastCommand(nullptr);  // nothing to take over: unchanged
    EXPECT_NEAR(refreshed.getLeftLegCommand().getLastVelocity(3), 4.36332F, 1e-5);
    // The law hands each joint its previous velocity, which it keeps.
    refreshed.setAllCommands();
    EXPECT_NEAR(refreshed.getLeftLegCommand().getKneeCommand().getJointCurrentVelocity(), 4.36332F,
                1e-5);
}

TEST_F(CommandTest, SetCurrentBodyRefreshesAnglesAndKeepsTargets) {
    Command command(&body);
    command.getLeftLegCommand().getHipXCommand().setJointTargetAlphaAndVelocityValue(20, 5, 1);
    Body moved;
    setAngle(moved.getLeftLeg(), 1, 18.0F);
    setAngle(moved.getHead(), 0, 30.0F);
    command.setCurrentBody(moved);
    const auto& hipX = command.getLeftLegCommand().getHingeJointCommand(1);
    EXPECT_EQ(hipX.getJointCurrentAlphaValue(), 18.0F);
    EXPECT_EQ(hipX.getHingeJoint().getJointAlphaValue(), 18.0F);
    EXPECT_EQ(hipX.getJointTargetAlphaValue(), 20.0F);
    EXPECT_EQ(command.getHeadCommand().getHingeJointCommand(0).getJointCurrentAlphaValue(), 30.0F);
    command.setAllCommands();
    EXPECT_NE(command.toString().find("(lle2 0.872665)"), std::string::npos);
}

TEST_F(CommandTest, ToBodyHoldsTheTargetsAndComparesArmsAndLegsOnly) {
    Command command(&body);
    command.getRightArmCommand().getElbowCommand().setJointTargetAlphaAndVelocityValue(45, 5, 1);
    command.getLeftLegCommand().getFootYCommand().setJointTargetAlphaAndVelocityValue(-12, 5, 1);
    command.getHeadCommand().getNeckXCommand().setJointTargetAlphaAndVelocityValue(90, 5, 1);
    const Body target = command.toBody();
    EXPECT_EQ(target.getRightArm()->getHingeJoint(2).getJointAlphaValue(), 45.0F);
    EXPECT_EQ(target.getLeftLeg()->getHingeJoint(5).getJointAlphaValue(), -12.0F);
    EXPECT_EQ(target.getHead()->getHingeJoint(0).getJointAlphaValue(), 90.0F);
    EXPECT_EQ(target.getLeftLeg()->getHingeJoint(5).getJointName(), "lle6");

    Body perceived;
    setAngle(perceived.getRightArm(), 2, 44.95F);
    setAngle(perceived.getLeftLeg(), 5, -12.05F);
    EXPECT_TRUE(perceived.isequal(target, 0.1F));  // the head is far off but not compared
    setAngle(perceived.getLeftLeg(), 5, -12.2F);
    EXPECT_FALSE(perceived.isequal(target, 0.1F));
}

TEST_F(CommandTest, WaitHoldsUntilTheTimeHasPassed) {
    Command command(&body);
    EXPECT_EQ(Command::time, -1.0F);
    command.doWait(0.5F, 10.0F);  // starts the wait
    EXPECT_EQ(Command::time, 10.0F);
    EXPECT_FALSE(command.isSendCommand());
    command.doWait(0.5F, 10.48F);
    EXPECT_FALSE(command.isSendCommand());
    command.doWait(0.5F, 10.5F);
    EXPECT_TRUE(command.isSendCommand());
    command.doWait(0.5F, 11.0F);
    EXPECT_TRUE(command.isSendCommand());
    EXPECT_EQ(Command::time, 10.0F);

    // The start time is shared by every command; -1 restarts the wait.
    Command other(&body);
    other.doWait(2.0F, 11.0F);
    EXPECT_FALSE(other.isSendCommand());
    Command::setTime(-1.0F);
    other.doWait(2.0F, 20.0F);
    EXPECT_EQ(Command::time, 20.0F);
    EXPECT_FALSE(other.isSendCommand());
    other.doWait(0.0F, 20.0F);  // a zero wait never holds
    EXPECT_TRUE(other.isSendCommand());
}

TEST_F(CommandTest, LimbCommandsAreNamedBySide) {
    const Command command(&body);
    EXPECT_EQ(command.getHeadCommand().toString(), "(he1 0) (he2 0)");
    EXPECT_EQ(command.getRightArmCommand().getHingeJointCommand(3).getJointName(), "rae4");
    EXPECT_EQ(command.getLeftArmCommand().getHingeJointCommand(0).getJointName(), "lae1");
    EXPECT_EQ(command.getRightLegCommand().getHingeJointCommand(5).getJointName(), "rle6");
    EXPECT_EQ(command.getLeftLegCommand().getHingeJointCommand(4).getJointName(), "lle5");
    // Side 0 is named like the left side.
    const LegCommand legZero(Side(0), Leg(Side(0)));
    EXPECT_EQ(legZero.toString(), "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 0) (lle6 0)");
    const ArmCommand armRight(Side(2), Arm(Side(2)));
    EXPECT_EQ(armRight.toString(), "(rae1 0) (rae2 0) (rae3 0) (rae4 0)");
}

TEST_F(CommandTest, LimbCommandRoundTripsToItsLimb) {
    Leg leg(Side(2));
    setAngle(&leg, 3, -50.0F);
    LegCommand command(Side(2), &leg);
    EXPECT_EQ(command.getKneeCommand().getJointCurrentAlphaValue(), -50.0F);
    command.getRotationCommand().setJointTargetAlphaAndVelocityValue(-30, 2, 0.1F);
    const Leg target = command.toLeg();
    EXPECT_EQ(target.getSide(), Side(2));
    EXPECT_EQ(target.getHingeJoint(0).getJointAlphaValue(), -30.0F);
    EXPECT_EQ(target.getHingeJoint(3).getJointAlphaValue(), 0.0F);  // targets, not angles
}

}  // namespace
