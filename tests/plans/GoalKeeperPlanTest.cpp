#include <gtest/gtest.h>

#include <memory>

#include "PlanFixture.h"
#include "plans/GoalKeeperPlan.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"

namespace {

using motiontest::marker;

// Target of the dive posture's left shoulder and of the diving foot (degrees).
constexpr float kDiveArm = 90.0F;

class GoalKeeperPlanTest : public plantest::PlanFixture {
protected:
    void SetUp() override {
        PlanFixture::SetUp();
        scene.side = 1;
        scene.x = -14.0F;
        scene.y = 0.5F;
    }

    std::unique_ptr<Command> keep(float ballX, float ballY, bool track = true) {
        scene.ballX = ballX;
        scene.ballY = ballY;
        return cycle<GoalKeeperPlan>("Goalie", track);
    }

    static float rightFoot(const Command& c) {
        return c.getRightLegCommand().getHingeJointCommand(5).getJointTargetAlphaValue();
    }
    static float leftFoot(const Command& c) {
        return c.getLeftLegCommand().getHingeJointCommand(5).getJointTargetAlphaValue();
    }
};

TEST_F(GoalKeeperPlanTest, FirstCycleSideStepsToTheMiddleOverridingTheStyle) {
    keep(-3.0F, 1.0F);
    EXPECT_FALSE(GoalKeeperPlan::first);
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");
    EXPECT_EQ(GoalKeeperPlan::name, "sideWalk");
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "RightSideWalk");  // from y 0.5 towards 0
    EXPECT_EQ(lastMarker, marker("RightSideWalk", 0));
}

TEST_F(GoalKeeperPlanTest, LeftSideDivesBelowMinusFive) {
    keep(-3.0F, 1.0F);
    auto c = keep(-6.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "div");
    EXPECT_EQ(lastMarker, kDiveArm);
    EXPECT_EQ(rightFoot(*c), 30.0F);  // right dive
    EXPECT_EQ(leftFoot(*c), 0.0F);
    EXPECT_TRUE(c->isSendCommand());
    c = keep(-6.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "div");
    EXPECT_EQ(leftFoot(*c), -30.0F);  // left dive
    EXPECT_EQ(rightFoot(*c), 0.0F);
    // The ball goes back up the field: side-stepping again.
    keep(-5.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "sideWalk");
}

TEST_F(GoalKeeperPlanTest, FallenKeeperGetsUpOnlyAfterTwentySeconds) {
    scene.time = 50.0F;
    keep(-6.0F, 0.4F);  // dives; the fall check starts both clocks now
    const float started = wm.getTime();
    EXPECT_EQ(RightDiv::getTime(), started);
    EXPECT_EQ(LeftDiv::getTime(), started);

    scene.fallen = true;
    scene.time = started + 10.0F - 0.02F;
    keep(-6.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "div");

    scene.time = started + 20.02F - 0.02F;
    scene.leftContactY = -0.02F;
    keep(-6.0F, 0.4F, false);
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(LeftDiv::getTime(), -1.0F);
    EXPECT_EQ(RightDiv::getTime(), -1.0F);
    EXPECT_EQ(Command::time, -1.0F);
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "BackStandUp");
    EXPECT_EQ(lastMarker, marker("BackStandUp", 0));

    // The next cycle's fall check restarts the clocks; the stand-up goes on although fallen.
    keep(-6.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(LeftDiv::getTime(), wm.getTime());
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "BackStandUp");
}

}  // namespace
