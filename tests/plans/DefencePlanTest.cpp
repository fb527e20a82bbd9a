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
    scene.ballX = -3.0F;
    scene.ballY = 1.2F;
    const auto command = cycle<DefencePlan>("Defence");
    ASSERT_NE(command, nullptr);
    EXPECT_FALSE(DefencePlan::first);
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");  // taken, overridden
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "LeftSideWalk");
    EXPECT_EQ(lastMarker, marker("LeftSideWalk", 0));
    // Standing with every joint at 0: only lae1 moves, by half of its 51 degrees to go.
    EXPECT_EQ(command->toString(),
              "(he1 0) (he2 0)"
              "(rae1 0) (rae2 0) (rae3 0) (rae4 0)"
              "(lae1 22.2529) (lae2 0) (lae3 0) (lae4 0)"
              "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 0) (rle6 0)"
              "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 0) (lle6 0)"
              "(Say )");
    // Later cycles take no style step.
    cycle<DefencePlan>("Defence");
    EXPECT_EQ(lastMarker, marker("LeftSideWalk", 1));
}

}  // namespace
