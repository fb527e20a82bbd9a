#include <gtest/gtest.h>

#include <memory>

#include "PlanFixture.h"
#include "plans/OffensePlan.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/kick/BasicKick.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"

namespace {

using motiontest::marker;

class OffensePlanTest : public plantest::PlanFixture {
protected:
    void SetUp() override {
        PlanFixture::SetUp();
        scene.side = 1;
        scene.x = -2.0F;
        scene.y = 0.0F;
        scene.ballX = 5.0F;
        scene.ballY = 3.0F;
    }

    std::unique_ptr<Command> attack(bool track = true) {
        return cycle<OffensePlan>("Offense", track);
    }
};

TEST_F(OffensePlanTest, FallWhileDashingStartsOneStandUp) {
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

    // Still fallen: the stand-up goes on by one key frame a cycle.
    attack();
    EXPECT_EQ(OffensePlan::name, "standup");
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "FrontStandUp");
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 1));
}

TEST_F(OffensePlanTest, KicksWhenCloseBehindTheBallFacingTheOpponents) {
    attack();
    attack();
    // The kick player was left finished by an earlier kick: a complete reset still kicks.
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
