#include "worldmodel/PerceptReader.h"

#include <gtest/gtest.h>

#include "utilities/parsing/SExpression.h"

namespace {

using V = math::Vector3<float>;

}  // namespace

TEST(PerceptReaderTest, PolarReadingsBecomeCameraVectors) {
    EXPECT_EQ(PerceptReader::polarToCartesian(10, 0, 0), V(10, 0, 0));
    const V left = PerceptReader::polarToCartesian(5, 90, 0);
    EXPECT_NEAR(left.x, 0.0, 1e-6);
    EXPECT_FLOAT_EQ(left.y, 5.0F);
    EXPECT_EQ(left.z, 0.0F);
    const V up = PerceptReader::polarToCartesian(3, 0, 90);
    EXPECT_NEAR(up.x, 0.0, 1e-6);
    EXPECT_NEAR(up.y, 0.0, 1e-6);
    EXPECT_FLOAT_EQ(up.z, 3.0F);
    const V down = PerceptReader::polarToCartesian(2, 0, -30);
    EXPECT_FLOAT_EQ(down.x, 1.7320508F);
    EXPECT_FLOAT_EQ(down.z, -1.0F);
}

TEST(PerceptReaderTest, LandmarksByTypeFirstListOnly) {
    const auto see = SExpression::parse(
        "(See (F1L (pol 10 0 0)) (G2R (pol 5 90 0)) (F1L (pol 1 1 1)) (L (pol 1 2 3) (pol 4 5 "
        "6)) (P (team Test) (id 1) (rlowerarm (pol 0.18 -34.62 -22.54))))");
    std::map<unsigned int, V> landmarks;
    std::string why;
    ASSERT_TRUE(PerceptReader::readLandmarks(*see, landmarks, why)) << why;
    ASSERT_EQ(landmarks.size(), 2U);
    EXPECT_EQ(landmarks.at(0), V(10, 0, 0));
    EXPECT_FLOAT_EQ(landmarks.at(7).y, 5.0F);
    bool seen = true;
    V ball;
    ASSERT_TRUE(PerceptReader::readBall(*see, seen, ball, why));
    EXPECT_FALSE(seen);
}

TEST(PerceptReaderTest, ParseReasons) {
    std::string why;
    EXPECT_NE(PerceptReader::parseMessage("(time (now 1))(GS (t 0) (pm PlayOn))", why), nullptr);
    EXPECT_EQ(PerceptReader::parseMessage("(time (now 1)", why), nullptr);
    EXPECT_EQ(why, "unbalanced parentheses: a list is not closed");
    EXPECT_EQ(PerceptReader::parseMessage("(time (now 1)))", why), nullptr);
    EXPECT_EQ(why, "unbalanced parentheses: a \")\" closes nothing");
    EXPECT_EQ(PerceptReader::parseMessage(std::string(400, '('), why), nullptr);
    EXPECT_EQ(why, "lists nested too deep");
}

TEST(PerceptReaderTest, WholeMessageInMessageOrder) {
    const auto root = SExpression::parse(
        "((time (now 2.5))(HJ (n rlj2) (ax 1))(FRP (n rf) (c 1 2 3) (f 4 5 6))(HJ (n hj1) (ax "
        "-12.5))(FRP (n xf) (c 0 0 0) (f 0 0 0))(HJ (n xyz) (ax 30)))");
    Percepts percepts;
    std::string why;
    ASSERT_TRUE(PerceptReader::readMessage(*root, percepts, why)) << why;
    EXPECT_EQ(percepts.now, 2.5F);
    EXPECT_FALSE(percepts.hasGameState);
    EXPECT_FALSE(percepts.hasGyro);
    EXPECT_FALSE(percepts.hasVision);
    ASSERT_EQ(percepts.joints.size(), 2U);
    EXPECT_EQ(percepts.joints[0].part, BodyPart::RightLeg);
    EXPECT_EQ(percepts.joints[0].index, 1U);
    EXPECT_EQ(percepts.joints[1].part, BodyPart::Head);
    EXPECT_EQ(percepts.joints[1].angle, -12.5F);
    ASSERT_EQ(percepts.feet.size(), 1U);
    EXPECT_TRUE(percepts.feet[0].right);
    EXPECT_EQ(percepts.feet[0].contactPoint, V(1, 2, 3));
    EXPECT_EQ(percepts.feet[0].force, V(4, 5, 6));
}
