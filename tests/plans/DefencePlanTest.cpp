#include <gtest/gtest.h>

#include "PlanFixture.h"
#include "plans/DefencePlan.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/style/BasicStyle.h"

namespace {

using motiontest::marker;

class DefencePlanTest : public plantest::PlanFixture {};

TEST_F(DefencePlanTest, FirstCycleIsAlreadyASideStepTowardsTheBall) {
    scene.x = -8.0F;
    scene.y = 0.0F;
    scene.ballX = -3.0F;
    scene.ballY = 1.2F;
    cycle<DefencePlan>("Defence");
    EXPECT_FALSE(DefencePlan::first);
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");  // taken, overridden
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "LeftSideWalk");
    EXPECT_EQ(lastMarker, marker("LeftSideWalk", 0));
}

TEST_F(DefencePlanTest, BallOnTheOtherSideStepsRight) {
    scene.x = -8.0F;
    scene.ballX = -3.0F;
    scene.ballY = -1.2F;
    cycle<DefencePlan>("Defence");
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "RightSideWalk");
    EXPECT_EQ(lastMarker, marker("RightSideWalk", 0));
    // Later cycles take no style step.
    cycle<DefencePlan>("Defence");
    EXPECT_EQ(lastMarker, marker("RightSideWalk", 1));
}

}  // namespace
