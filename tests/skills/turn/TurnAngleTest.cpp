#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "skills/turn/BasicTurn.h"
#include "skills/turn/TurnAngle.h"
#include "support/MotionFixture.h"

namespace {

struct TurnCycle {
    std::string skill;  // the turn player's current skill after the cycle
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
        return {BasicTurn::getConfigSkill().getCurrentSkillName(), t.isFinished()};
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
    float done;   // degrees
    std::vector<std::string> steps;
};

// Steps of 40, 30, 25, 15, 10 and 5 degrees, the largest that fits, until within 5.1 degrees.
TEST_F(TurnAngleTest, TurnsInTheLargestStepsThatFit) {
    const TurnCase cases[] = {
        {57.0F, 55.0F, {"TurnRight40", "TurnRight15", "Stop"}},
        {45.1F, 40.0F, {"TurnRight40", "Stop"}},
        {45.2F, 45.0F, {"TurnRight40", "TurnRight5", "Stop"}},
        {-69.0F, -65.0F, {"TurnLeft40", "TurnLeft25", "Stop"}},
        {-75.0F, -70.0F, {"TurnLeft40", "TurnLeft30", "Stop"}},
        {20.0F, 15.0F, {"TurnRight15", "Stop"}},
        {14.0F, 10.0F, {"TurnRight10", "Stop"}},
        {8.0F, 5.0F, {"TurnRight5", "Stop"}},
        {0.0F, 5.0F, {"TurnRight5", "Stop"}},
        {-3.0F, -5.0F, {"TurnLeft5", "Stop"}},
    };
    for (const TurnCase& c : cases) {
        resetTurn();
        EXPECT_EQ(turnToEnd(c.angle), c.steps) << c.angle;
        EXPECT_EQ(BasicTurn::getDoAngle(), c.done) << c.angle;
    }
}

}  // namespace
