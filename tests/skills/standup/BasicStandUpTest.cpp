#include <gtest/gtest.h>

#include <string>

#include "skills/standup/BasicStandUp.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class StandUpTest : public motiontest::MotionFixture {
protected:
    struct StandUpCycle {
        float marker;
        std::string skill;
        bool finished;
    };

    StandUpCycle standUp(bool start, bool track = true) {
        perceive(track);
        BasicStandUp s(wm, start, false);
        auto command = take(s.getCommand());
        EXPECT_NE(command, nullptr);
        EXPECT_TRUE(s.isCurrentSkillFinished());
        return {lastMarker, BasicStandUp::getConfigSkill().getCurrentSkillName(), s.isFinished()};
    }
};

TEST_F(StandUpTest, SideComesFromTheLeftFootContactPoint) {
    scene.leftContactY = -0.02F;
    StandUpCycle c = standUp(true);
    EXPECT_EQ(c.skill, "BackStandUp");
    EXPECT_EQ(c.marker, marker("BackStandUp", 0));
    scene.leftContactY = 0.0F;
    c = standUp(true, false);
    EXPECT_EQ(c.skill, "FrontStandUp");
    EXPECT_EQ(c.marker, marker("FrontStandUp", 0));
    scene.leftContactY = 0.03F;
    EXPECT_EQ(standUp(true, false).skill, "FrontStandUp");
}

TEST_F(StandUpTest, MotionThenStopThenSuccess) {
    standUp(true);
    EXPECT_EQ(standUp(false).marker, marker("FrontStandUp", 1));
    StandUpCycle c = standUp(false);  // the stand-up motion ends
    EXPECT_FALSE(c.finished);
    c = standUp(false);
    EXPECT_EQ(c.skill, "Stop");
    EXPECT_EQ(c.marker, marker("Stop", 0));
    EXPECT_FALSE(c.finished);
    EXPECT_FALSE(standUp(false).finished);  // "Stop" ends
    c = standUp(false);
    EXPECT_TRUE(c.finished);
    EXPECT_EQ(c.skill, "Stop");
}

}  // namespace
