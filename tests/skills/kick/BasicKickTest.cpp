#include <gtest/gtest.h>

#include <string>

#include "skills/kick/BasicKick.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class KickTest : public motiontest::MotionFixture {
protected:
    struct KickCycle {
        float marker;
        std::string skill;
        bool finished;
    };

    KickCycle kick(bool track = true) {
        perceive(track);
        BasicKick k(wm, false);
        auto command = take(k.getCommand());
        EXPECT_NE(command, nullptr);
        return {lastMarker, BasicKick::getConfigSkill().getCurrentSkillName(), k.isFinished()};
    }

    static void resetKickPlayer() {
        BasicKick::getConfigSkill().setCurrentSkillName("@");
        BasicKick::getConfigSkill().setFinishedSkill(false);
    }
};

TEST_F(KickTest, KickThenStopThenSuccess) {
    resetKickPlayer();
    KickCycle c = kick();
    EXPECT_EQ(BasicKick::getKickSide(), "LeftKick");
    EXPECT_EQ(c.skill, "LeftKick");
    EXPECT_EQ(c.marker, marker("LeftKick", 0));
    EXPECT_EQ(kick(false).marker, marker("LeftKick", 0));  // held until reached
    EXPECT_EQ(kick().marker, marker("LeftKick", 1));
    EXPECT_EQ(kick().marker, marker("LeftKick", 2));
    c = kick();  // the kick ends
    EXPECT_TRUE(BasicKick::getConfigSkill().isFinished());
    EXPECT_FALSE(c.finished);

    c = kick();  // "Stop" from its first step
    EXPECT_EQ(c.skill, "Stop");
    EXPECT_EQ(c.marker, marker("Stop", 0));
    EXPECT_FALSE(c.finished);
    c = kick();  // "Stop" ends
    EXPECT_FALSE(c.finished);
    EXPECT_TRUE(BasicKick::getConfigSkill().isFinished());
    for (int i = 0; i < 3; ++i) {  // done, and stays done: "Stop" is replayed
        c = kick();
        EXPECT_TRUE(c.finished);
        EXPECT_EQ(c.skill, "Stop");
        EXPECT_EQ(c.marker, marker("Stop", 0));
    }
}

}  // namespace
