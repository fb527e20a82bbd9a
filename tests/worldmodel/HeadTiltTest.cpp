// The camera is pitched with the head: what a robot with its head tilted down sees of the far
// corner flags and the ball is turned level before the localisation, so that its position and
// the ball's come out where they are.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "support/MotionWorld.h"
#include "worldmodel/WorldModelTesting.h"

namespace {

// What a robot facing +x with its camera `height` m up and pitched `tilt` degrees sees of a point.
std::string seen(double px, double py, double pz, double x, double y, double height, double tilt) {
    return motiontest::polar(px - x, py - y, pz - height, 0.0, tilt);
}

std::string message(double x, double y, double ballX, double ballY, double tilt,
                    double reportedTilt) {
    const double height = 0.5;
    std::ostringstream out;
    out << "(time (now 1.00))(GS (t 0.00) (pm PlayOn))(HJ (n hj1) (ax 0.00))(HJ (n hj2) (ax "
        << reportedTilt << "))(See (F1R " << seen(15, 10, 0, x, y, height, tilt) << ") (F2R "
        << seen(15, -10, 0, x, y, height, tilt) << ") (B "
        << seen(ballX, ballY, 0.042, x, y, height, tilt) << "))";
    return out.str();
}

TEST_F(WorldModelTest, TheHeadsTiltIsTakenOutOfWhatTheCameraSees) {
    setConfig("WorldModelParameters", "Vision", "LevelHeadTilt", "true");
    struct Case {
        double x, y, ballX, ballY, tilt;
    };
    for (const Case c : {Case{-0.5, -0.1, 0.0, 0.0, -20.0}, Case{-9.0, 1.5, -6.0, 3.0, -20.0},
                         Case{4.0, -3.0, 6.0, -2.0, 0.0}}) {
        WorldModel wm;
        ASSERT_TRUE(wm.update(message(c.x, c.y, c.ballX, c.ballY, c.tilt, c.tilt)));
        const auto& self = wm.getSelf()->getPosition();
        const auto& ball = wm.getBall()->getPosition();
        EXPECT_NEAR(self.x, c.x, 0.05) << c.x << " " << c.y;
        EXPECT_NEAR(self.y, c.y, 0.05) << c.x << " " << c.y;
        EXPECT_NEAR(ball.x, c.ballX, 0.05) << c.x << " " << c.y;
        EXPECT_NEAR(ball.y, c.ballY, 0.05) << c.x << " " << c.y;
    }
    // The same view with the tilt not reported, or with levelling switched off (the camera's
    // vectors as they come): the robot is placed half a metre or more off.
    WorldModel notReported;
    ASSERT_TRUE(notReported.update(message(-0.5, -0.1, 0.0, 0.0, -20.0, 0.0)));
    EXPECT_GT(std::fabs(notReported.getSelf()->getPosition().x + 0.5F), 0.5F);
    setConfig("WorldModelParameters", "Vision", "LevelHeadTilt", "false");
    WorldModel notLevelled;
    ASSERT_TRUE(notLevelled.update(message(-0.5, -0.1, 0.0, 0.0, -20.0, -20.0)));
    EXPECT_GT(std::fabs(notLevelled.getSelf()->getPosition().x + 0.5F), 0.5F);
}

}  // namespace
