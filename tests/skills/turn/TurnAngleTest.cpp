#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "skills/turn/BasicTurn.h"
#include "skills/turn/TurnAngle.h"
#include "skills/turn/TurnToAngle.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

struct TurnCycle {
    float marker;       // the key frame the command was taken from
    std::string skill;  // the turn player's current skill after the cycle
    float doAngle;      // degrees commanded so far
    bool finished;      // the turn reports success
};

class TurnAngleTest : public motiontest::MotionFixture {
protected:
    // The caller's duty before a new turn.
    static void resetTurn() {
        BasicTurn::setDoAngle(0.0F);
        BasicTurn::getConfigSkill().setCurrentSkillName("@");
        BasicTurn::getConfigSkill().setFinishedSkill(false);
    }

    TurnCycle turn(float angle, bool track = true) {
        perceive(track);
        TurnAngle t(angle, wm, 0.0F, false);
        auto command = take(t.getCommand());
        EXPECT_NE(command, nullptr);
        return {lastMarker, BasicTurn::getConfigSkill().getCurrentSkillName(),
                BasicTurn::getDoAngle(), t.isFinished()};
    }

    // Runs cycles of `angle` until the turn reports success (at most `limit`), collecting the
    // turn skills started in order.
    std::vector<std::string> turnToEnd(float angle, int limit = 40) {
        std::vector<std::string> started;
        for (int i = 0; i < limit; ++i) {
            const TurnCycle c = turn(angle);
            if (started.empty() || started.back() != c.skill) {
                started.push_back(c.skill);
            }
            if (c.finished) {
                return started;
            }
        }
        ADD_FAILURE() << "turn by " << angle << " did not finish";
        return started;
    }
};

TEST_F(TurnAngleTest, StepSizesFollowTheRemainingAngle) {
    EXPECT_EQ(TurnAngle::stepSizeFor(57.0F), 40.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(40.0F), 40.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(39.9F), 30.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(30.0F), 30.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(29.0F), 25.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(25.0F), 25.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(24.9F), 15.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(15.0F), 15.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(14.9F), 10.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(10.0F), 10.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(9.9F), 5.0F);
    EXPECT_EQ(TurnAngle::stepSizeFor(0.0F), 5.0F);
    EXPECT_EQ(TurnAngle::stepSkillName(true, 40.0F), "TurnLeft40");
    EXPECT_EQ(TurnAngle::stepSkillName(false, 5.0F), "TurnRight5");
}

TEST_F(TurnAngleTest, LeftFortyThenStopThenSuccess) {
    resetTurn();
    TurnCycle c = turn(-40.0F);
    EXPECT_EQ(c.skill, "TurnLeft40");
    EXPECT_EQ(c.marker, marker("TurnLeft40", 0));
    EXPECT_EQ(c.doAngle, -40.0F);
    EXPECT_EQ(BasicTurn::getTurnAngle(), 40.0F);
    EXPECT_FALSE(c.finished);

    c = turn(-40.0F);
    EXPECT_EQ(c.marker, marker("TurnLeft40", 1));
    c = turn(-40.0F);  // the last key frame is reached: the player reports finished
    EXPECT_TRUE(BasicTurn::getConfigSkill().isFinished());
    EXPECT_FALSE(c.finished);

    c = turn(-40.0F);  // nothing remains: "Stop" from its first step
    EXPECT_EQ(c.skill, "Stop");
    EXPECT_EQ(c.marker, marker("Stop", 0));
    EXPECT_FALSE(c.finished);
    c = turn(-40.0F);  // "Stop" is reached and ends
    EXPECT_TRUE(BasicTurn::getConfigSkill().isFinished());
    EXPECT_FALSE(c.finished);
    c = turn(-40.0F);
    EXPECT_TRUE(c.finished);
    EXPECT_EQ(c.skill, "Stop");
    EXPECT_EQ(c.marker, marker("Stop", 0));
    c = turn(-40.0F);  // done stays done while the robot holds the pose
    EXPECT_TRUE(c.finished);
    EXPECT_EQ(c.doAngle, -40.0F);
}

TEST_F(TurnAngleTest, FiftySevenTakesFortyThenFifteen) {
    resetTurn();
    const TurnCycle first = turn(57.0F);
    EXPECT_EQ(first.skill, "TurnRight40");
    EXPECT_EQ(first.doAngle, 40.0F);
    turn(57.0F);
    turn(57.0F);
    const TurnCycle second = turn(57.0F);
    EXPECT_EQ(second.skill, "TurnRight15");
    EXPECT_EQ(second.marker, marker("TurnRight15", 0));
    EXPECT_EQ(second.doAngle, 55.0F);
    EXPECT_EQ(BasicTurn::getTurnAngle(), 15.0F);
    const std::vector<std::string> rest = turnToEnd(57.0F);
    EXPECT_EQ(rest, (std::vector<std::string>{"TurnRight15", "Stop"}));
    EXPECT_EQ(BasicTurn::getDoAngle(), 55.0F);
}

TEST_F(TurnAngleTest, SmallAnglesTakeOneFiveDegreeStep) {
    for (const float angle : {8.0F, 3.0F, 0.0F}) {
        resetTurn();
        EXPECT_EQ(turnToEnd(angle), (std::vector<std::string>{"TurnRight5", "Stop"}))
            << "angle " << angle;
        EXPECT_EQ(BasicTurn::getDoAngle(), 5.0F);
    }
    resetTurn();
    EXPECT_EQ(turnToEnd(-3.0F), (std::vector<std::string>{"TurnLeft5", "Stop"}));
    EXPECT_EQ(BasicTurn::getDoAngle(), -5.0F);
}

TEST_F(TurnAngleTest, CompletesWithinFivePointOneDegrees) {
    resetTurn();
    EXPECT_EQ(turnToEnd(45.1F), (std::vector<std::string>{"TurnRight40", "Stop"}));
    resetTurn();
    EXPECT_EQ(turnToEnd(45.2F), (std::vector<std::string>{"TurnRight40", "TurnRight5", "Stop"}));
    EXPECT_EQ(BasicTurn::getDoAngle(), 45.0F);
}

TEST_F(TurnAngleTest, SameSizeAgainResumesAtTheLoopStep) {
    resetTurn();
    turn(80.0F);
    turn(80.0F);
    turn(80.0F);  // the first TurnRight40 ends
    const TurnCycle again = turn(80.0F, false);
    EXPECT_EQ(again.skill, "TurnRight40");
    EXPECT_EQ(again.doAngle, 80.0F);
    EXPECT_EQ(again.marker, marker("TurnRight40", motiontest::loopStep("TurnRight40")));
    EXPECT_NE(again.marker, marker("TurnRight40", 0));
}

TEST_F(TurnAngleTest, AStepInProgressIsContinuedNotReplanned) {
    resetTurn();
    turn(-40.0F);
    // The robot has not reached the key frame: the same step is played again.
    const TurnCycle held = turn(-40.0F, false);
    EXPECT_EQ(held.marker, marker("TurnLeft40", 0));
    EXPECT_EQ(held.doAngle, -40.0F);
}

TEST_F(TurnAngleTest, DroppedCommandAdvancesTheSameState) {
    resetTurn();
    perceive();
    TurnAngle dropped(-40.0F, wm, 0.0F, true);
    EXPECT_EQ(dropped.getCommand(), nullptr);
    EXPECT_EQ(BasicTurn::getDoAngle(), -40.0F);
    EXPECT_EQ(BasicTurn::getConfigSkill().getCurrentSkillName(), "TurnLeft40");
}

TEST_F(TurnAngleTest, IdleTurnAndTurnToAngleChooseNothing) {
    TurnAngle idle;
    EXPECT_EQ(idle.getCommand(), nullptr);
    EXPECT_FALSE(idle.isFinished());
    EXPECT_EQ(idle.getDeltaAngle(), 0.0F);
    EXPECT_FALSE(idle.isOneTurnPossible());
    perceive();
    TurnToAngle toAngle(30.0F, wm, 0.0F, false);
    EXPECT_EQ(toAngle.getCommand(), nullptr);
    EXPECT_TRUE(toAngle.isFinished());
    EXPECT_EQ(BasicTurn::getConfigSkill().getCurrentSkillName(), "@");
    EXPECT_EQ(BasicTurn::getDoAngle(), 0.0F);
}

}  // namespace
