#include <gtest/gtest.h>

#include "body/HingeJoint.h"
#include "commands/HingeJointCommand.h"
#include "commands/MasterCommand.h"

namespace {

// The law's result (rad/s) for one joint, computed through a joint command as the player does.
float velocity(const std::string& name, float current, float target, float speed, float precision) {
    HingeJointCommand command(name, HingeJoint(name, current));
    command.setJointTargetAlphaAndVelocityValue(target, speed, precision);
    command.setJointCommandAlphaValue();
    return command.getJointCommandAlphaValue();
}

constexpr float kStep = 1.1459156F;  // degrees per cycle per rad/s

TEST(VelocityLaw, FullSpeedWhileFarFromTargetInBothDirections) {
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 10, 5, 1), 5 / kStep);
    EXPECT_FLOAT_EQ(velocity("lae1", 0, -10, 5, 1), -5 / kStep);
    EXPECT_FLOAT_EQ(velocity("lae1", 20, 10, 5, 1), -5 / kStep);
    // Exactly max(speed, 3) away still moves at full speed.
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 5, 5, 1), 5 / kStep);
}

TEST(VelocityLaw, FullSpeedThresholdIsAtLeastThreeDegrees) {
    // With speed 1 an error of 2.9 degrees is closed by halves, 3 degrees at full speed.
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 3, 1, 0.1F), 1 / kStep);
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 2.9F, 1, 0.1F), 2.9F / kStep * 0.5F);
}

TEST(VelocityLaw, HalfTheRemainingErrorNearTheTarget) {
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 2, 5, 1), 2 / kStep * 0.5F);
    EXPECT_FLOAT_EQ(velocity("lae1", 0, -2, 5, 1), -2 / kStep * 0.5F);
    // An error equal to the precision is still corrected.
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 1, 5, 1), 1 / kStep * 0.5F);
}

TEST(VelocityLaw, DeadBandBelowPrecision) {
    EXPECT_EQ(velocity("lae1", 0, 0.5F, 5, 1), 0.0F);
    EXPECT_EQ(velocity("lae1", 3, 2.95F, 5, 0.1F), 0.0F);
}

TEST(VelocityLaw, FootJointsStopWithinAThirdOfADegree) {
    for (const char* name : {"lle5", "rle5", "lle6", "rle6"}) {
        EXPECT_EQ(velocity(name, 0, 0.2F, 5, 0.1F), 0.0F) << name;
        EXPECT_EQ(velocity(name, 0, -0.29F, 5, 0.01F), 0.0F) << name;
        EXPECT_FLOAT_EQ(velocity(name, 0, 0.3F, 5, 0.1F), 0.3F / kStep * 0.5F) << name;
    }
    for (const char* name : {"lle4", "rle4", "lle1", "he1", "lae3"}) {
        EXPECT_FLOAT_EQ(velocity(name, 0, 0.2F, 5, 0.1F), 0.2F / kStep * 0.5F) << name;
    }
}

TEST(VelocityLaw, TinySpeedCountsAsOneDegreePerCycle) {
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 10, 0, 1), 1 / kStep);
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 10, 0.009F, 1), 1 / kStep);
    EXPECT_FLOAT_EQ(velocity("lae1", 0, 10, 0.01F, 1), 0.01F / kStep);
}

TEST(VelocityLaw, KeepsTheLastFullSpeedResult) {
    MasterCommand law;
    const HingeJoint joint("lae1", 0);
    EXPECT_EQ(law.getParametersChangesCommandValue(), 0.0F);
    law.getChangesCommand(0, 10, 5, joint, 1, 0);
    EXPECT_FLOAT_EQ(law.getParametersChangesCommandValue(), 5 / kStep);
    law.getChangesCommand(0, 2, 5, joint, 1, 0);  // half-error branch leaves it
    EXPECT_FLOAT_EQ(law.getParametersChangesCommandValue(), 5 / kStep);
    law.getChangesCommand(0, -10, 4, joint, 1, 0);
    EXPECT_FLOAT_EQ(law.getParametersChangesCommandValue(), -4 / kStep);
}

TEST(VelocityLaw, LastVelocityIsStoredButDoesNotChangeTheResult) {
    HingeJointCommand command("lae1", HingeJoint("lae1", 0));
    command.setJointTargetAlphaAndVelocityValue(2, 5, 1);
    command.setJointCommandAlphaValue(123.0F);
    EXPECT_FLOAT_EQ(command.getJointCommandAlphaValue(), 2 / kStep * 0.5F);
    EXPECT_EQ(command.getJointCurrentVelocity(), 123.0F);
    command.setJointCommandAlphaValue();  // the form without an argument keeps the field
    EXPECT_EQ(command.getJointCurrentVelocity(), 123.0F);
}

TEST(HingeJointCommandTest, ConstructorsTakeTheCurrentAngle) {
    const HingeJointCommand empty;
    EXPECT_EQ(empty.getJointName(), "");
    EXPECT_EQ(empty.getJointCurrentAlphaValue(), 0.0F);

    const HingeJointCommand byAngle("rle3", 12.5F);
    EXPECT_EQ(byAngle.getJointName(), "rle3");
    EXPECT_EQ(byAngle.getJointCurrentAlphaValue(), 12.5F);
    EXPECT_EQ(byAngle.getHingeJoint().getJointName(), "");
    EXPECT_EQ(byAngle.getHingeJoint().getJointAlphaValue(), 0.0F);

    const HingeJointCommand byJoint("rle3", HingeJoint("rle3", -7.0F));
    EXPECT_EQ(byJoint.getJointCurrentAlphaValue(), -7.0F);
    EXPECT_EQ(byJoint.getHingeJoint().getJointAlphaValue(), -7.0F);
    EXPECT_EQ(byJoint.getJointTargetAlphaValue(), 0.0F);
    EXPECT_EQ(byJoint.getJointVelocityValue(), 0.0F);
    EXPECT_EQ(byJoint.getJointCommandAlphaValue(), 0.0F);
}

}  // namespace
