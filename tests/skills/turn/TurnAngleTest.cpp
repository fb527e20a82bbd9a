#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "skills/turn/BasicTurn.h"
#include "skills/turn/TurnAngle.h"
#include "support/MotionFixture.h"

namespace {

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

struct TurnCase {
    float angle;  // degrees
    std::vector<std::string> steps;
    float done;  // degrees
};

// Steps of 40, 30, 25, 15, 10 and 5 degrees, the largest that fits, until within 5.1 degrees.
TEST_F(TurnAngleTest, TurnsInTheLargestStepsThatFit) {
    const TurnCase cases[] = {
        {57.0F, {"TurnRight40", "TurnRight15", "Stop"}, 55.0F},
        {45.1F, {"TurnRight40", "Stop"}, 40.0F},
        {45.2F, {"TurnRight40", "TurnRight5", "Stop"}, 45.0F},
        {-69.0F, {"TurnLeft40", "TurnLeft25", "Stop"}, -65.0F},
        {-75.0F, {"TurnLeft40", "TurnLeft30", "Stop"}, -70.0F},
        {20.0F, {"TurnRight15", "Stop"}, 15.0F},
        {14.0F, {"TurnRight10", "Stop"}, 10.0F},
        {8.0F, {"TurnRight5", "Stop"}, 5.0F},
        {0.0F, {"TurnRight5", "Stop"}, 5.0F},
        {-3.0F, {"TurnLeft5", "Stop"}, -5.0F},
    };
    for (const TurnCase& c : cases) {
        resetTurn();
        EXPECT_EQ(turnToEnd(c.angle), c.steps) << c.angle;
        EXPECT_EQ(BasicTurn::getDoAngle(), c.done) << c.angle;
    }
}

}  // namespace
