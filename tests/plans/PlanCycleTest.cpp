// Each role's plan cycle by cycle: the first cycle's style step, the keeper's dives, getting up
// under either fall rule, the attacker's kick.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "support/Expected.h"
#include "support/MotionFixture.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"

namespace {

using motiontest::marker;

// The robot sees the field, and each cycle runs one plan decision as the acting turn does.
class PlanCycleTest : public motiontest::MotionFixture {
protected:
    void SetUp() override {
        MotionFixture::SetUp();
        scene.vision = true;
    }
    std::unique_ptr<Command> keep(float ballX, float ballY, bool track = true) {
        scene.ballX = ballX;
        scene.ballY = ballY;
        return cycle<GoalKeeperPlan>("Goalie", track);
    }
    std::unique_ptr<Command> attack(bool track = true) {
        return cycle<OffensePlan>("Offense", track);
    }
    // Two cycles of an attacker at (-2, 0) walking towards a ball at (5, 3).
    void walkTowardsTheBall() {
        scene.x = -2.0F;
        scene.ballX = 5.0F;
        scene.ballY = 3.0F;
        attack();
        attack();
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
    EXPECT_EQ(command->toString(), support::effectorText({{"lae1", "22.2529"}}));
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
    walkTowardsTheBall();
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

// A stand-up key frame the body cannot reach (it lies on a joint) is left for the next after
// 2.5 s, and a run that has not ended after 8 s is begun again, on the side the robot lies on by
// then.
TEST_F(PlanCycleTest, AttackerStuckInAStandUpGoesOnThenBeginsAgain) {
    std::ostringstream mainLog;
    logger.add("Main", new LogStream(&mainLog, nullptr), false);
    walkTowardsTheBall();
    attack();
    scene.fallen = true;
    scene.leftContactY = 0.02F;
    attack(false);
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 0));
    const float began = scene.time;
    // The shoulder never reaches a key frame's target: seconds from the run's beginning until
    // the marker is no longer `stuck`.
    const auto heldFor = [&](float stuck) {
        while (lastMarker == stuck && scene.time < began + 20.0F) {
            attack(false);
        }
        return scene.time - began;
    };
    EXPECT_NEAR(heldFor(marker("FrontStandUp", 0)), 2.52F, 0.015F);
    EXPECT_EQ(lastMarker, marker("FrontStandUp", 1));
    scene.leftContactY = -0.02F;
    EXPECT_NEAR(heldFor(marker("FrontStandUp", 1)), 8.02F, 0.015F);  // the last key frame
    EXPECT_EQ(OffensePlan::name, "standup");
    EXPECT_EQ(BasicStandUp::getConfigSkill().getCurrentSkillName(), "BackStandUp");
    EXPECT_EQ(lastMarker, marker("BackStandUp", 0));
    attack();
    EXPECT_EQ(lastMarker, marker("BackStandUp", 1));
    const std::string log = mainLog.str();
    Logger::resetState();
    EXPECT_NE(log.find("StandUp: FrontStandUp key frame 1 not reached after 2.5 s, going on\n"),
              std::string::npos);
    EXPECT_NE(log.find("StandUp: FrontStandUp has not ended after 8 s, BackStandUp begins\n"),
              std::string::npos);
}

TEST_F(PlanCycleTest, AttackerKicksCloseBehindTheBallAtTheEndOfAGaitCycleThenWalksAgain) {
    walkTowardsTheBall();
    // The kick player was left finished by an earlier kick: the kick still starts afresh.
    BasicKick::getConfigSkill().setCurrentSkillName("Stop");
    BasicKick::getConfigSkill().setFinishedSkill(true);
    scene.ballX = scene.x + 0.2F;
    scene.ballY = 0.05F;
    // The walk is in the middle of its gait cycle (3 key frames, looping to the last): it plays
    // on to the cycle's end before the kick starts.
    std::vector<float> walked = {lastMarker};
    int cycles = 0;
    while (OffensePlan::name == "dash" && cycles < 10) {
        attack();
        walked.push_back(lastMarker);
        ++cycles;
    }
    // The cycle ended (its last frame, then the loop frame), then the kick.
    ASSERT_GE(walked.size(), 3U);
    EXPECT_EQ(walked[walked.size() - 3], marker("Walk", 2));
    EXPECT_EQ(walked[walked.size() - 2], marker("Walk", 1));
    EXPECT_EQ(OffensePlan::name, "kick");
    EXPECT_EQ(BasicKick::getConfigSkill().getCurrentSkillName(), "LeftKick");
    EXPECT_EQ(lastMarker, marker("LeftKick", 0));

    // The kick runs to its end (its "Stop" included), then the attacker walks again.
    cycles = 0;
    while (OffensePlan::name == "kick" && cycles < 20) {
        scene.ballX = 5.0F;  // the ball has gone
        attack();
        ++cycles;
    }
    EXPECT_EQ(OffensePlan::name, "dash");
    EXPECT_GT(cycles, 2);
    EXPECT_EQ(BasicKick::getConfigSkill().getCurrentSkillName(), "@");
}

// With a group "Footing" the attacker playing for goals walks on, watching the ball, until the
// ball is close enough, then kicks where a gait cycle ends.
TEST_F(PlanCycleTest, AttackerWithFootingWalksOnUntilTheBallIsCloseThenKicks) {
    ConfigFile& offense = config["OffenseParameters"];
    for (const auto& [group, key, value] : {std::tuple{"Attack", "Target", "goal"},
                                            {"Attack", "ApproachDistance", "0.6"},
                                            {"Attack", "Clearance", "0.7"},
                                            {"Attack", "LineTolerance", "0.25"},
                                            {"Attack", "FootOffset", "0.055"},
                                            {"Footing", "BallAhead", "0.2"},
                                            {"Footing", "WatchBall", "true"}}) {
        offense.addGroup(group);
        offense[group].add(key, value);
    }
    walkTowardsTheBall();
    EXPECT_FALSE(OffensePlan::watchingBall);  // 7 m away
    scene.ballX = scene.x + 0.3F;
    scene.ballY = scene.y + 0.05F;
    for (int i = 0; i < 6; ++i) {
        attack();
        EXPECT_EQ(OffensePlan::name, "dash");
    }
    EXPECT_TRUE(OffensePlan::watchingBall);
    scene.ballX = scene.x + 0.15F;
    int cycles = 0;
    while (OffensePlan::name == "dash" && cycles < 10) {
        attack();
        ++cycles;
    }
    EXPECT_EQ(OffensePlan::name, "kick");
    EXPECT_EQ(lastMarker, marker("LeftKick", 0));
    Config::resetState();  // the next test registers its configuration afresh, without the groups
}

// Getting up under the fall rule `Attitude`: the side of the stand-up comes from the torso's
// attitude (the left foot's contact point always says the opposite here), the goalkeeper gets up
// at once unless it lies there diving, and the defender gets up before it side-steps again.
// A robot put down lying (no gyroscope sees it turn) reads fallen within this many messages:
// 0.5 s.
constexpr int kMaxFallMessages = 25;

class FallRecoveryTest : public PlanCycleTest {
protected:
    void SetUp() override {
        PlanCycleTest::SetUp();
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
