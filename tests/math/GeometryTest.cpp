#include "math/Geometry.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using Vec = math::Vector3<float>;

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

TEST(GeometryTest, NormalizeAngleStepsByTwoPiRoundingToFloat) {
    EXPECT_EQ(math::normalizeAngle(4.0F), static_cast<float>(4.0 - kTwoPi));
    const float once = static_cast<float>(-10.0 + kTwoPi);
    const float twice = static_cast<float>(static_cast<double>(once) + kTwoPi);
    EXPECT_EQ(math::normalizeAngle(-10.0F), twice);
    EXPECT_NEAR(math::normalizeAngle(-10.0F), 2.566, 1e-3);
    EXPECT_EQ(math::normalizeAngle(1.0F), 1.0F);
    EXPECT_EQ(math::normalizeAngle(0.0F), 0.0F);
}

TEST(GeometryTest, NormalizeAngleComparesWithDoublePi) {
    // The float nearest to pi lies just above double pi, so it wraps to just above -pi; the
    // float below it is inside the range and stays as it is.
    const float abovePi = static_cast<float>(kPi);
    ASSERT_GT(static_cast<double>(abovePi), kPi);
    EXPECT_EQ(math::normalizeAngle(abovePi),
              static_cast<float>(static_cast<double>(abovePi) - kTwoPi));
    EXPECT_GE(static_cast<double>(math::normalizeAngle(abovePi)), -kPi);
    const float belowPi = std::nextafter(abovePi, 0.0F);
    EXPECT_EQ(math::normalizeAngle(belowPi), belowPi);
    EXPECT_EQ(math::normalizeAngle(-belowPi), -belowPi);
    EXPECT_EQ(math::normalizeAngle(-abovePi),
              static_cast<float>(static_cast<double>(-abovePi) + kTwoPi));
}

TEST(GeometryTest, NormalizeAngleStaysInRangeAndTerminatesForLargeAngles) {
    for (float angle : {7.0F, -7.0F, 100.0F, -250.0F, 1.0e6F, -3.0e9F, 1.0e30F}) {
        const float result = math::normalizeAngle(angle);
        EXPECT_GE(static_cast<double>(result), -kPi) << angle;
        EXPECT_LE(static_cast<double>(result), kPi) << angle;
        EXPECT_NEAR(
            std::remainder(static_cast<double>(result) - static_cast<double>(angle), kTwoPi), 0.0,
            1e-3 * std::fmax(1.0, std::fabs(static_cast<double>(angle)) * 1e-4))
            << angle;
    }
    EXPECT_TRUE(std::isnan(math::normalizeAngle(INFINITY)));
    EXPECT_TRUE(std::isnan(math::normalizeAngle(NAN)));
}

TEST(GeometryTest, AbsoluteAngleIsHalfOpen) {
    EXPECT_EQ(math::absoluteAngle(180.0F), -180.0F);
    EXPECT_EQ(math::absoluteAngle(-180.0F), -180.0F);
    EXPECT_EQ(math::absoluteAngle(540.0F), -180.0F);
    EXPECT_EQ(math::absoluteAngle(190.0F), -170.0F);
    EXPECT_EQ(math::absoluteAngle(400.0F), 40.0F);
    EXPECT_EQ(math::absoluteAngle(-10.0F), -10.0F);
    EXPECT_EQ(math::absoluteAngle(179.5F), 179.5F);
    EXPECT_EQ(math::absoluteAngle(-725.0F), -5.0F);
}

TEST(GeometryTest, AbsoluteAngleTerminatesForLargeAngles) {
    EXPECT_EQ(math::absoluteAngle(36360.0F * 10.0F + 90.0F), 90.0F);
    const float huge = math::absoluteAngle(1.0e20F);
    EXPECT_GE(huge, -180.0F);
    EXPECT_LT(huge, 180.0F);
    EXPECT_TRUE(std::isnan(math::absoluteAngle(-INFINITY)));
}

TEST(GeometryTest, Average) {
    EXPECT_EQ(math::average(1.0F, 2.0F, 3.0F, 6.0F), 3.0F);
    EXPECT_EQ(math::average(-1.0F, 1.0F, -2.0F, 2.0F), 0.0F);
}

TEST(GeometryTest, GetDegreeOnAStraightLineIsHalfATurn) {
    const float angle = math::getDegree(Vec(-1.0F, 0.0F, 0.0F), Vec(), Vec(1.0F, 0.0F, 0.0F));
    EXPECT_NEAR(std::fabs(static_cast<double>(angle)), kPi, 1e-6);
    const float diagonal =
        math::getDegree(Vec(0.0F, 0.0F, 5.0F), Vec(1.0F, 1.0F, 0.0F), Vec(2.0F, 2.0F, -5.0F));
    EXPECT_NEAR(std::fabs(static_cast<double>(diagonal)), kPi, 1e-6);
}

TEST(GeometryTest, GetDegreeFromTheSamePlaceIsZero) {
    const Vec a(3.0F, -2.0F, 0.0F);
    EXPECT_EQ(math::getDegree(a, Vec(7.0F, 1.0F, 0.0F), a), 0.0F);
}

TEST(GeometryTest, GetDegreeIsSignedAndUsesXYOnly) {
    // a->b points along +x; c->b points along +y: the angle from the first to the second is
    // a quarter turn counter-clockwise.
    const Vec b(1.0F, 1.0F, 0.0F);
    EXPECT_NEAR(math::getDegree(Vec(0.0F, 1.0F, 0.0F), b, Vec(1.0F, 0.0F, 9.0F)), kPi / 2, 1e-6);
    EXPECT_NEAR(math::getDegree(Vec(1.0F, 0.0F, 0.0F), b, Vec(0.0F, 1.0F, -9.0F)), -kPi / 2, 1e-6);
}

}  // namespace
