// Self-localisation on constructed scenes whose answers are known: a 12 x 8 m field with goals
// 1.4 m wide, so F1R is at (6, 4, 0), F2R at (6, -4, 0), G1L at (-6, 0.7, 0).
#include <gtest/gtest.h>

#include <cmath>

#include "support/MotionWorld.h"
#include "worldmodel/WorldModelTesting.h"

namespace {

using Seen = std::map<unsigned int, math::Vector3<float>>;
using V = math::Vector3<float>;

constexpr float pi = 3.14159265F;

// The field positions of the eight landmarks on the 12 x 8 m field, by FlagType value.
const std::array<V, 8> field = {V(-6, 4, 0),    V(6, 4, 0),    V(-6, -4, 0),    V(6, -4, 0),
                                V(-6, 0.7F, 0), V(6, 0.7F, 0), V(-6, -0.7F, 0), V(6, -0.7F, 0)};

// What a camera at `at` (height at.z above the landmarks) turned to `heading` (radians) sees of
// landmark `type`.
V seenFrom(const V& at, float heading, unsigned int type) {
    const double dx = static_cast<double>(field[type].x - at.x);
    const double dy = static_cast<double>(field[type].y - at.y);
    const double c = std::cos(static_cast<double>(heading));
    const double s = std::sin(static_cast<double>(heading));
    return {static_cast<float>(c * dx + s * dy), static_cast<float>(-s * dx + c * dy), -at.z};
}

// The "pol" list of a vector in the camera's frame.
std::string pol(const V& v) {
    return motiontest::polar(v.x, v.y, v.z, 0.0);
}

}  // namespace

class LocalisationTest : public WorldModelTest {
protected:
    void SetUp() override {
        WorldModelTest::SetUp();
        setConfig("WorldModelParameters", "Field", "Length", "12");
        setConfig("WorldModelParameters", "Field", "Width", "8");
        setConfig("WorldModelParameters", "Field", "GoalWidth", "1.4");
    }

    WorldModel wm;
};

TEST_F(LocalisationTest, TwoLandmarksStraightAhead) {
    const Seen seen = {{F1R, V(5, 4, -0.5F)}, {F2R, V(5, -4, -0.5F)}};
    const V heading = wm.updateBodyAngularPositionByFlags(seen, 0);
    EXPECT_EQ(heading, V(0, 0, 0));
    EXPECT_TRUE(Share::bodyDir);
    const V position = wm.updateBodyAngularPositionByFlags(seen, 1);
    EXPECT_NEAR(position.x, 1.0, 1e-5);
    EXPECT_NEAR(position.y, 0.0, 1e-5);
    EXPECT_NEAR(position.z, 0.5, 1e-5);
    EXPECT_EQ(Self::getLastPosition(), position);
    EXPECT_EQ(wm.getXY(), 0.0F);
    EXPECT_EQ(wm.getFlagsVisionSize(), 2);
}

TEST_F(LocalisationTest, AllEightLandmarksRefineThePositionOnAGrid) {
    // A camera 5 cm above the landmarks at (1, 0.5), turned by 0.3 rad. The first estimate
    // keeps the camera's height; a position found by the grid lies on the ground (z 0).
    const V at(1, 0.5F, 0.05F);
    Seen seen;
    for (unsigned int t = 0; t < 8; ++t) {
        seen[t] = seenFrom(at, 0.3F, t);
    }
    EXPECT_NEAR(wm.updateBodyAngularPositionByFlags(seen, 0).x, 0.3, 1e-5);
    const V refined = wm.updateBodyAngularPositionByFlags(seen, 1);
    EXPECT_NEAR(refined.x, 1.0, 0.01);
    EXPECT_NEAR(refined.y, 0.5, 0.01);
    EXPECT_EQ(refined.z, 0.0F);

    // With one landmark fewer no candidate can pass: the first estimate stands.
    seen.erase(G2L);
    const V estimate = wm.updateBodyAngularPositionByFlags(seen, 1);
    EXPECT_NEAR(estimate.x, 1.0, 1e-4);
    EXPECT_NEAR(estimate.y, 0.5, 1e-4);
    EXPECT_NEAR(estimate.z, 0.05, 1e-4);
}

TEST_F(LocalisationTest, VisionPlacesSelfAndBall) {
    // The robot at (1, 2), camera 0.5 m up, facing +x; the ball 2 m ahead, 30 degrees down.
    const V at(1, 2, 0.5F);
    const std::string see = "(See (F1R " + pol(seenFrom(at, 0, F1R)) + ") (F2R " +
                            pol(seenFrom(at, 0, F2R)) + ") (B (pol 2 0 -30)))";
    ASSERT_TRUE(wm.update("(time (now 1.00))(HJ (n hj1) (ax 10))" + see));
    EXPECT_NEAR(wm.getXY(), 0.0, 1e-5);
    EXPECT_NEAR(wm.getSelf()->getPosition().x, 1.0, 1e-4);
    EXPECT_NEAR(wm.getSelf()->getPosition().y, 2.0, 1e-4);
    EXPECT_NEAR(wm.getSelf()->getPosition().z, 0.5, 1e-4);
    EXPECT_NEAR(wm.getBall()->getPosition().x, 1.0 + std::sqrt(3.0), 1e-4);
    EXPECT_NEAR(wm.getBall()->getPosition().y, 2.0, 1e-4);
    EXPECT_NEAR(wm.getBall()->getPosition().z, -0.5, 1e-4);
    // The head looks straight ahead while the neck is turned 10 degrees left: the body points
    // 10 degrees right.
    EXPECT_NEAR(wm.getSelf()->getBodyDirection(), -10.0, 1e-3);

    // A ball straight below the camera.
    const std::string below = "(See (F1R " + pol(seenFrom(at, 0, F1R)) + ") (F2R " +
                              pol(seenFrom(at, 0, F2R)) + ") (B (pol 0.5 0 -90)))";
    ASSERT_TRUE(wm.update("(time (now 1.02))" + below));
    EXPECT_NEAR(wm.getBall()->getPosition().x, 1.0, 1e-4);
    EXPECT_NEAR(wm.getBall()->getPosition().y, 2.0, 1e-4);
    EXPECT_NEAR(wm.getBall()->getPosition().z, 0.0, 1e-4);
}
