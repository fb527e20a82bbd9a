#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "math/Point.h"
#include "math/Vector3.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/turn/BasicTurn.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class DashTest : public motiontest::MotionFixture {
protected:
    void SetUp() override {
        MotionFixture::SetUp();
        place(0.0F, 0.0F, 0.0F);
    }

    // Puts the robot at (x, y) with the given body direction (degrees).
    void place(float x, float y, float heading) {
        wm.setSelf()->setPosition(math::Vector3<float>(x, y, 0.0F));
        wm.setSelf()->setBodyDirection(heading);
    }

    struct DashCycle {
        float marker;
        std::string skill;  // the walking player's current skill
        bool finished;      // the dash reports success
    };

    DashCycle dash(const math::Point& target, bool track = true) {
        perceive(track);
        DashNormalGotoPoint d(target, wm, false);
        auto command = take(d.getCommand());
        EXPECT_NE(command, nullptr);
        return {lastMarker, BasicDash::getConfigSkill().getCurrentSkillName(), d.isFinished()};
    }

    // Cycles towards `target` until the walking player reports its skill finished.
    void runUntilSkillEnds(const math::Point& target, int limit = 10) {
        for (int i = 0; i < limit; ++i) {
            dash(target);
            if (BasicDash::getConfigSkill().isFinished()) {
                return;
            }
        }
        ADD_FAILURE() << "the walking skill did not end";
    }

    static math::Point ahead(float distance) { return {distance, 0.0F, 0.0F}; }
    static math::Point atAngle(float distance, float degrees) {
        const double r = static_cast<double>(degrees) * 3.141592653589793 / 180.0;
        return {distance * static_cast<float>(std::cos(r)),
                distance * static_cast<float>(std::sin(r)), 0.0F};
    }
};

TEST_F(DashTest, ArrivalStopsThenSucceeds) {
    runUntilSkillEnds(ahead(3.0F));
    // The target is now 0.28 m away, just inside the arrival distance, and the walk has ended.
    const math::Point near = ahead(0.28F);
    DashCycle c = dash(near, false);
    EXPECT_EQ(c.skill, "Stop");
    EXPECT_EQ(c.marker, marker("Stop", 0));
    EXPECT_FALSE(c.finished);
    runUntilSkillEnds(near);
    c = dash(near);
    EXPECT_TRUE(c.finished);
    EXPECT_EQ(c.skill, "Stop");
}

TEST_F(DashTest, DistanceThresholdsAreStrict) {
    runUntilSkillEnds(ahead(3.0F));
    // Exactly 0.3 m is not arrived (short walk); exactly 0.5 m walks with "Walk".
    EXPECT_EQ(dash(ahead(0.3F), false).skill, "ShortWalk");
    runUntilSkillEnds(ahead(0.5F));
    EXPECT_EQ(dash(ahead(0.5F), false).skill, "Walk");
    EXPECT_EQ(DashNormalGotoPoint::getWalkSkillType(), "Walk");
}

TEST_F(DashTest, OffTheLineAWalkIsStoppedBeforeTheTurn) {
    runUntilSkillEnds(ahead(3.0F));
    const math::Point target = atAngle(2.0F, 45.0F);
    EXPECT_EQ(dash(target, false).marker, marker("Stop", 0));
    EXPECT_FALSE(DashNormalGotoPoint::isActionBoolean());
    runUntilSkillEnds(target);
    // The stop has ended: a turn of 40 degrees (clamped from 45) to the left begins.
    const DashCycle c = dash(target, false);
    EXPECT_TRUE(DashNormalGotoPoint::isActionBoolean());
    EXPECT_EQ(DashNormalGotoPoint::getDeltaAlpha(), 40.0F);
    EXPECT_EQ(BasicTurn::getConfigSkill().getCurrentSkillName(), "TurnLeft40");
    EXPECT_EQ(BasicTurn::getDoAngle(), -40.0F);
    EXPECT_EQ(c.marker, marker("TurnLeft40", 0));
}

TEST_F(DashTest, TurnNeedsBothTheAngleAndTheLateralOffset) {
    runUntilSkillEnds(ahead(3.0F));
    // 2 m away the smallest turn is 10 degrees: 9.5 walks on, 10.5 stops the walk for a turn.
    EXPECT_EQ(dash(atAngle(2.0F, 9.5F), false).skill, "Walk");
    runUntilSkillEnds(atAngle(2.0F, 9.5F));
    EXPECT_EQ(dash(atAngle(2.0F, 10.5F), false).skill, "Stop");
    runUntilSkillEnds(atAngle(2.0F, 10.5F));
    // 1 m away at 11 degrees the target is only 0.19 m off the line: no turn, walk on.
    dash(atAngle(1.0F, 11.0F), false);
    EXPECT_FALSE(DashNormalGotoPoint::isActionBoolean());
    EXPECT_EQ(BasicDash::getConfigSkill().getCurrentSkillName(), "Walk");
}

}  // namespace
