#include <gtest/gtest.h>

#include <string>

#include "body/Leg.h"
#include "commands/LegCommand.h"
#include "commands/SayCommand.h"

namespace {

LegCommand legAt(float hipX, float hipY, float knee) {
    Leg leg(Side(1));
    const float angles[] = {0, hipX, hipY, knee, 0, 0};
    for (unsigned int i = 0; i < 6; ++i) {
        HingeJoint joint(leg.getHingeJoint(i));
        joint.setJointAlphaValue(angles[i]);
        leg.setHingeJoint(i, joint);
    }
    LegCommand command(Side(1), leg);
    for (unsigned int i = 0; i < 6; ++i) {
        command.getHingeJointCommand(i).setJointTargetAlphaAndVelocityValue(
            7.0F + static_cast<float>(i), 1.5F, 2.0F);
    }
    return command;
}

void expectUntouched(const LegCommand& command, std::initializer_list<unsigned int> joints) {
    for (const unsigned int i : joints) {
        const auto& joint = command.getHingeJointCommand(i);
        EXPECT_EQ(joint.getJointTargetAlphaValue(), 7.0F + static_cast<float>(i)) << i;
        EXPECT_EQ(joint.getJointVelocityValue(), 1.5F) << i;
        EXPECT_EQ(joint.getPrecision(), 2.0F) << i;
    }
}

TEST(FootParallelGround, FootFollowsHipAndKnee) {
    LegCommand command = legAt(10, 30, -60);
    command.footParallerGround(math::Vector3<float>(), 4.0F);
    EXPECT_NEAR(command.getFootYCommand().getJointTargetAlphaValue(), -10.0F, 1e-4);
    EXPECT_NEAR(command.getFootXCommand().getJointTargetAlphaValue(), 30.0F, 1e-4);
    EXPECT_EQ(command.getFootYCommand().getJointVelocityValue(), 4.0F);
    EXPECT_EQ(command.getFootXCommand().getJointVelocityValue(), 4.0F);
    EXPECT_EQ(command.getFootYCommand().getPrecision(), 0.01F);
    EXPECT_EQ(command.getFootXCommand().getPrecision(), 0.01F);
    expectUntouched(command, {0, 1, 2, 3});
}

TEST(FootParallelGround, SumBeyondHalfATurnWraps) {
    LegCommand command = legAt(0, 100, 100);
    command.footParallerGround(math::Vector3<float>(), 2.0F);
    EXPECT_NEAR(command.getFootXCommand().getJointTargetAlphaValue(), 160.0F, 1e-3);
    EXPECT_NEAR(command.getFootYCommand().getJointTargetAlphaValue(), 0.0F, 1e-6);
}

TEST(FootParallelGround, UsesPerceivedAnglesNotTargets) {
    LegCommand command = legAt(0, 0, 0);
    command.getHipXCommand().setJointTargetAlphaAndVelocityValue(40, 1, 1);
    command.footParallerGround(math::Vector3<float>(1, 2, 3), 2.0F);
    EXPECT_NEAR(command.getFootYCommand().getJointTargetAlphaValue(), 0.0F, 1e-6);
}

TEST(Raise, BendsHipAndKneeTogether) {
    LegCommand command = legAt(5, 6, 7);
    command.raise2(25.0F, 4.0F);
    EXPECT_EQ(command.getHipYCommand().getJointTargetAlphaValue(), 25.0F);
    EXPECT_EQ(command.getKneeCommand().getJointTargetAlphaValue(), -25.0F);
    EXPECT_EQ(command.getHipYCommand().getJointVelocityValue(), 4.0F);
    EXPECT_EQ(command.getKneeCommand().getJointVelocityValue(), 4.0F);
    EXPECT_EQ(command.getHipYCommand().getPrecision(), 0.1F);
    EXPECT_EQ(command.getKneeCommand().getPrecision(), 0.1F);
    expectUntouched(command, {0, 1, 4, 5});
}

TEST(Say, EncodesABallPositionInFourCharacters) {
    EXPECT_EQ(SayCommand::encode(3.47F, 12.05F), "5a>7");
    const std::string codes = SayCommand::encode(3.47F, 12.05F);
    ASSERT_EQ(codes.size(), 4U);
    EXPECT_EQ(static_cast<int>(codes[0]), 53);
    EXPECT_EQ(static_cast<int>(codes[1]), 97);
    EXPECT_EQ(static_cast<int>(codes[2]), 62);
    EXPECT_EQ(static_cast<int>(codes[3]), 55);
    EXPECT_EQ(SayCommand::encode(0, 0), "2222");
    const std::string top = SayCommand::encode(205.99F, 0.5F);
    EXPECT_EQ(static_cast<unsigned char>(top[0]), 255);
    EXPECT_EQ(static_cast<unsigned char>(top[1]), 149);
    EXPECT_EQ(top.substr(2), std::string("2") + static_cast<char>(100));
}

TEST(Say, DecodeInvertsEncode) {
    const auto [x, y] = SayCommand::decode("5a>7");
    EXPECT_FLOAT_EQ(x, 3.47F);
    EXPECT_FLOAT_EQ(y, 12.05F);
    const auto [hx, hy] = SayCommand::decode(SayCommand::encode(205.99F, 100.25F));
    EXPECT_FLOAT_EQ(hx, 205.99F);
    EXPECT_FLOAT_EQ(hy, 100.25F);
    // Codes below 50 count from the top of the 8-bit range.
    const auto [wx, wy] = SayCommand::decode(std::string("\x31\x32\x32\x32", 4));
    EXPECT_FLOAT_EQ(wx, 255.0F);
    EXPECT_FLOAT_EQ(wy, 0.0F);
    // Too short to carry a position.
    const auto [sx, sy] = SayCommand::decode("52");
    EXPECT_EQ(sx, 0.0F);
    EXPECT_EQ(sy, 0.0F);
}

TEST(Say, TextIsWrappedInTheSayEffector) {
    SayCommand say;
    EXPECT_EQ(say.getSendStr(), "");
    EXPECT_EQ(say.toString(), "(Say )");
    say.setCurrentBall(3.47F, 12.05F);
    EXPECT_EQ(say.getSendStr(), "5a>7");
    EXPECT_EQ(say.toString(), "(Say 5a>7)");
    const SayCommand copy(say);
    EXPECT_EQ(copy.toString(), "(Say 5a>7)");
    say.setSendStr("hi");
    EXPECT_EQ(say.toString(), "(Say hi)");
}

}  // namespace
