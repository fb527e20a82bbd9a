// Getting up under the fall rule `Attitude`: the side of the stand-up comes from the torso's
// attitude (the left foot's contact point always says the opposite here), the goalkeeper gets up at
// once unless it lies there diving, and the defender gets up before it side-steps again.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "PlanFixture.h"
#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "utilities/config/Config.h"

namespace {

using motiontest::marker;

// A robot put down lying (no gyroscope sees it turn) reads fallen within this many messages:
// 0.5 s.
constexpr int kMaxFallMessages = 25;

class FallRecoveryTest : public plantest::PlanFixture {
protected:
    void SetUp() override {
        PlanFixture::SetUp();
        config["WorldModelParameters"].addGroup("Fall");
        config["WorldModelParameters"]["Fall"].add("Rule", "Attitude");
    }
    // The fixture registers its configuration again for every test, keeping keys it does not
    // name: the rule goes back to the one without the key.
    void TearDown() override { config["WorldModelParameters"]["Fall"].add("Rule", "Landmarks"); }

    // The accelerometer of a robot lying as given ("front", "back", "left", "right") or
    // standing ("up"); the left foot's contact point says the opposite of front or back.
    void lie(const std::string& side) {
        scene.accX = side == "left" ? 9.81F : (side == "right" ? -9.81F : 0.0F);
        scene.accY = side == "front" ? -9.81F : (side == "back" ? 9.81F : 0.0F);
        scene.accZ = side == "up" ? 9.81F : 0.0F;
        scene.leftContactY = side == "front" ? -0.02F : 0.03F;
    }

    // Runs `step` (one plan cycle) until the world model reads fallen, checking `before` after
    // every cycle that does not; false when the fall is not known within kMaxFallMessages.
    template <class Step, class Check>
    bool untilFallen(Step step, Check before) {
        for (int i = 0; i < kMaxFallMessages; ++i) {
            step();
            if (wm.isFallen()) {
                return true;
            }
            before();
        }
        return false;
    }

    std::unique_ptr<Command> keep(float ballX, float ballY) {
        scene.ballX = ballX;
        scene.ballY = ballY;
        return cycle<GoalKeeperPlan>("Goalie");
    }
};

TEST_F(FallRecoveryTest, KeeperGetsUpInTheCycleTheFallIsKnownWhenItWasNotDiving) {
    scene.x = -14.0F;
    keep(0.0F, 1.0F);
    ASSERT_EQ(GoalKeeperPlan::name, "sideWalk");
    lie("back");
    ASSERT_TRUE(untilFallen([this] { keep(0.0F, 1.0F); },
                            [] { ASSERT_EQ(GoalKeeperPlan::name, "sideWalk"); }));
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(lastMarker, marker("BackStandUp", 0));
    // The stand-up ends with the keeper still down, the ball (as seen from the ground) past the
    // dive limit: a dive begun lying is no reason to stay there.
    BasicStandUp::getConfigSkill().setCurrentSkillName("Stop");
    BasicStandUp::getConfigSkill().setFinishedSkill(true);
    keep(-6.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "BackStandUp");
}

TEST_F(FallRecoveryTest, KeeperStaysDownWhileTheDiveBlocksAndGetsUpWhenItEnds) {
    scene.x = -14.0F;
    keep(-6.0F, 0.4F);
    ASSERT_EQ(GoalKeeperPlan::name, "div");
    lie("left");
    ASSERT_TRUE(untilFallen([this] { keep(-6.0F, 0.4F); }, [] {}));
    // Lying in the ball's way for 2 s: still diving.
    for (int i = 0; i < 100; ++i) {
        keep(-6.0F, 0.4F);
        ASSERT_EQ(GoalKeeperPlan::name, "div") << "message " << i;
    }
    // The ball goes back up the field: the dive has ended, the stand-up begins at once.
    keep(-3.0F, 0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(LeftDiv::getTime(), -1.0F);
    EXPECT_EQ(RightDiv::getTime(), -1.0F);
}

TEST_F(FallRecoveryTest, KeeperLyingInTheBallsWayGetsUpThreeSecondsAfterTheFall) {
    scene.x = -14.0F;
    keep(-6.0F, -0.4F);
    lie("right");
    ASSERT_TRUE(untilFallen([this] { keep(-6.0F, -0.4F); }, [] {}));
    EXPECT_EQ(GoalKeeperPlan::name, "div");
    const float fell = wm.getTime();
    scene.time = fell + 2.98F - 0.02F;
    keep(-6.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "div");
    scene.time = fell + 3.02F - 0.02F;
    keep(-6.0F, -0.4F);
    EXPECT_EQ(GoalKeeperPlan::name, "standup");
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 0));
}

TEST_F(FallRecoveryTest, FallenDefenderGetsUpThenSideStepsAgain) {
    scene.x = -8.0F;
    scene.ballX = -3.0F;
    scene.ballY = 1.2F;
    cycle<DefencePlan>("Defence");
    lie("front");
    ASSERT_TRUE(untilFallen([this] { cycle<DefencePlan>("Defence"); },
                            [] { ASSERT_EQ(DefencePlan::name, ""); }));
    EXPECT_EQ(DefencePlan::name, "standup");
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 0));
    // Back on its feet (put there: no gyroscope sees it, the attitude reads up 0.2 s later):
    // the stand-up and "Stop" play out, then the side-steps go on.
    lie("up");
    for (int i = 0; i < 50 && DefencePlan::name == "standup"; ++i) {
        cycle<DefencePlan>("Defence");
    }
    EXPECT_EQ(DefencePlan::name, "");
    EXPECT_EQ(BasicSideWalk::getSideWalkSide(), "LeftSideWalk");
    EXPECT_FALSE(wm.isFallen());
}

}  // namespace
