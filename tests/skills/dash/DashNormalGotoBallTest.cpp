#include <gtest/gtest.h>

#include <memory>

#include "math/Vector3.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoBall.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "support/MotionFixture.h"

namespace {

using motiontest::marker;

class DashToBallTest : public motiontest::MotionFixture {
protected:
    void SetUp() override {
        MotionFixture::SetUp();
        scene.vision = true;
        scene.x = 0.0F;
        scene.y = 0.0F;
    }

    std::unique_ptr<Command> goToBall(float ballX, float ballY) {
        scene.ballX = ballX;
        scene.ballY = ballY;
        perceive();
        DashNormalGotoBall dash(wm, false);
        EXPECT_FALSE(dash.isFinished());
        EXPECT_EQ(dash.getSuccessRate(), 0.0F);
        return take(dash.getCommand());
    }
};

TEST_F(DashToBallTest, BallAheadIsApproachedFromBesideIt) {
    // The point beside the ball, (0.4, 0.142), is 0.42 m away: the short gait.
    const auto command = goToBall(0.4F, 0.0F);
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(DashNormalGotoBall::getBallSide(), "golo");
    EXPECT_EQ(BasicDash::getConfigSkill().getCurrentSkillName(), "ShortWalk");
    EXPECT_EQ(lastMarker, marker("ShortWalk", 0));
}

TEST_F(DashToBallTest, BallBehindIsWalkedToDirectly) {
    // 0.2 m behind the robot: arrived at once.
    const auto command = goToBall(-0.2F, 0.0F);
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(DashNormalGotoBall::getBallSide(), "");
    EXPECT_EQ(BasicDash::getConfigSkill().getCurrentSkillName(), "Stop");
}

TEST_F(DashToBallTest, BallLevelWithTheRobotRunsNoDash) {
    scene.vision = false;  // the ball is never seen: it stays at the field's centre
    perceive();
    wm.setSelf()->setPosition(math::Vector3<float>(0.0F, 1.0F, 0.0F));
    DashNormalGotoBall dash(wm, false);
    EXPECT_EQ(dash.getCommand(), nullptr);
    EXPECT_FALSE(dash.isFinished());
    EXPECT_FALSE(DashNormalGotoPoint::isFirstFinished());
}

}  // namespace
