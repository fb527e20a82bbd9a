#include <gtest/gtest.h>

#include "skills/style/BasicStyle.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class StyleTest : public motiontest::MotionFixture {};

TEST_F(StyleTest, PlaysOneStepPerCallAndIsFinishedAtOnce) {
    perceive();
    BasicStyle first(wm, false);
    EXPECT_TRUE(first.isFinished());
    EXPECT_TRUE(first.isCurrentSkillFinished());
    ASSERT_NE(take(first.getCommand()), nullptr);
    EXPECT_EQ(lastMarker, marker("Style", 0));
    perceive();
    BasicStyle second(wm, false);
    take(second.getCommand());
    EXPECT_EQ(lastMarker, marker("Style", 1));
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");
}

TEST_F(StyleTest, DroppedCommand) {
    perceive();
    BasicStyle dropped(wm, true);
    EXPECT_EQ(dropped.getCommand(), nullptr);
    EXPECT_EQ(BasicStyle::getConfigSkill().getCurrentSkillName(), "Style");
}

}  // namespace
