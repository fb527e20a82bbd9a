// Each role's plan cycle by cycle under the fall rule `Landmarks`: the first cycle's style step,
// the keeper's dives and its 20 s on the ground, the attacker's stand-up and kick.
#include <gtest/gtest.h>

#include <memory>

#include "PlanFixture.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"

namespace {

using motiontest::marker;

class PlanCycleTest : public plantest::PlanFixture {
protected:
    std::unique_ptr<Command> keep(float ballX, float ballY, bool track = true) {
        scene.ballX = ballX;
        scene.ballY = ballY;
        return cycle<GoalKeeperPlan>("Goalie", track);
    }
    std::unique_ptr<Command> attack(bool track = true) {
        return cycle<OffensePlan>("Offense", track);
    }
};

TEST_F(PlanCycleTest, FirstCycleOfADefenderIsAlreadyASideStepTowardsTheBall) {
    scene.x = -8.0F;
    scene.ballX = -3.0F;
    scene.ballY = 1.2F;
    const auto command = cycle<DefencePlan>("Defence");
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

TEST_F(PlanCycleTest, KeeperSideStepsToTheMiddleThenDivesBelowMinusFive) {
    scene.x = -14.0F;
    scene.y = 0.5F;
    keep(-3.0F, 1.0F);
    EXPECT_FALSE(GoalKeeperPlan::first);
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");
    EXPECT_EQ(GoalKeeperPlan::name, "sideWalk");
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "RightSideWalk");  // from y 0.5 towards 0
    EXPECT_EQ(lastMarker, marker("RightSideWalk", 0));
    const auto dive = keep(-6.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "div");
    EXPECT_EQ(GoalKeeperPlan::diveSide, "RightDiv");
    EXPECT_TRUE(dive->isSendCommand());
    keep(-6.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::diveSide, "LeftDiv");
    // The ball goes back up the field: side-stepping again.
    keep(-5.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "sideWalk");
}

TEST_F(PlanCycleTest, FallenKeeperGetsUpOnlyAfterTwentySeconds) {
    scene.x = -14.0F;
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
    EXPECT_EQ(lastMarker, marker("BackStandUp", 1));
}

TEST_F(PlanCycleTest, AttackerFallingWhileDashingPlaysOneStandUpAKeyFrameACycle) {
    scene.x = -2.0F;
    scene.ballX = 5.0F;
    scene.ballY = 3.0F;
    attack();
    attack();
    attack();
    scene.fallen = true;
    scene.leftContactY = 0.02F;
    attack(false);
    EXPECT_EQ(OffensePlan::name, "standup");
    EXPECT_EQ(Command::time, -1.0F);
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "FrontStandUp");
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 0));
    attack();
    EXPECT_EQ(OffensePlan::name, "standup");
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 1));
}

TEST_F(PlanCycleTest, AttackerKicksCloseBehindTheBallThenWalksAgain) {
    scene.x = -2.0F;
    scene.ballX = 5.0F;
    scene.ballY = 3.0F;
    attack();
    attack();
    // The kick player was left finished by an earlier kick: the kick still starts afresh.
    BasicKick::getConfigSkill().setCurrentSkillName("Stop");
    BasicKick::getConfigSkill().setFinishedSkill(true);
    scene.ballX = scene.x + 0.2F;
    scene.ballY = 0.05F;
    attack(false);
    EXPECT_EQ(OffensePlan::name, "kick");
    EXPECT_EQ(BasicKick::getConfigSkill().getCurrentSkillName(), "LeftKick");
    EXPECT_EQ(lastMarker, marker("LeftKick", 0));

    // The kick runs to its end (its "Stop" included), then the attacker walks again.
    int cycles = 0;
    while (OffensePlan::name == "kick" && cycles < 20) {
        scene.ballX = 5.0F;  // the ball has gone
        attack();
        ++cycles;
    }
    EXPECT_EQ(OffensePlan::name, "dash");
    EXPECT_GT(cycles, 2);
    EXPECT_EQ(BasicKick::getConfigSkill().getCurrentSkillName(), "@");
}

}  // namespace
