#include <gtest/gtest.h>

#include <string>

#include "math/Vector3.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class SideWalkTest : public motiontest::MotionFixture {
protected:
    void placeAtY(float y) { wm.setSelf()->setPosition(math::Vector3<float>(-10.0F, y, 0.0F)); }

    std::string step(float y, bool track = true) {
        perceive(track);
        BasicSideWalk s(wm, y, true);  // the command is kept whatever the flag says
        auto command = take(s.getCommand());
        EXPECT_NE(command, nullptr);
        EXPECT_FALSE(s.isFinished());
        return BasicSideWalk::getSideWalkSide();
    }
};

TEST_F(SideWalkTest, ChoosesTheSideOfTheTarget) {
    placeAtY(0.5F);
    EXPECT_EQ(step(0.5F), "LeftSideWalk");  // no dead band: level steps left
    EXPECT_EQ(lastMarker, marker("LeftSideWalk", 0));
    EXPECT_TRUE(BasicSideWalk::isFirstFinished());
    motiontest::resetSkillState();
    placeAtY(0.5F);
    EXPECT_EQ(step(-1.0F), "RightSideWalk");
    EXPECT_EQ(lastMarker, marker("RightSideWalk", 0));
    motiontest::resetSkillState();
    placeAtY(0.5F);
    EXPECT_EQ(step(1.2F), "LeftSideWalk");
}

TEST_F(SideWalkTest, KeepsItsSideUntilTheSideStepEnds) {
    placeAtY(0.0F);
    EXPECT_EQ(step(1.0F), "LeftSideWalk");
    // The target crosses the robot while the left step is playing.
    EXPECT_EQ(step(-1.0F), "LeftSideWalk");
    EXPECT_EQ(lastMarker, marker("LeftSideWalk", 1));
    EXPECT_EQ(step(-1.0F), "LeftSideWalk");  // the left step reaches its end here
    EXPECT_TRUE(BasicSideWalk::getConfigSkill().isFinished());
    // Only now is the side chosen afresh; the player's step is not reset.
    EXPECT_EQ(step(-1.0F, false), "RightSideWalk");
    EXPECT_EQ(lastMarker, marker("RightSideWalk", motiontest::loopStep("LeftSideWalk")));
}

}  // namespace
