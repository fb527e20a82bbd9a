#include "math/Geometry.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using Vec = math::Vector3<float>;

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

TEST(GeometryTest, NormalizeAngleStepsByTwoPiIntoMinusPiToPi) {
    // The float nearest to pi lies just above double pi, so it wraps to just above -pi.
    const auto abovePi = static_cast<float>(kPi);
    const float belowPi = std::nextafter(abovePi, 0.0F);
    const std::pair<float, float> cases[] = {
        {1.0F, 1.0F},
        {abovePi, static_cast<float>(static_cast<double>(abovePi) - kTwoPi)},
        {belowPi, belowPi},
        {-belowPi, -belowPi},
    };
    for (const auto& [radians, normalized] : cases) {
        EXPECT_EQ(math::normalizeAngle(radians), normalized) << radians;
    }
    for (float angle : {100.0F, -250.0F, 1.0e6F, -3.0e9F, 1.0e30F}) {
        const float result = math::normalizeAngle(angle);
        EXPECT_GE(static_cast<double>(result), -kPi) << angle;
        EXPECT_LE(static_cast<double>(result), kPi) << angle;
    }
    EXPECT_TRUE(std::isnan(math::normalizeAngle(INFINITY)));
}

TEST(GeometryTest, AbsoluteAngleIsInMinus180To180Degrees) {
    const std::pair<float, float> cases[] = {
        {180.0F, -180.0F}, {-180.0F, -180.0F}, {540.0F, -180.0F},
        {190.0F, -170.0F}, {400.0F, 40.0F},    {-10.0F, -10.0F},
        {179.5F, 179.5F},  {-725.0F, -5.0F},   {363690.0F, 90.0F},
    };
    for (const auto& [degrees, absolute] : cases) {
        EXPECT_EQ(math::absoluteAngle(degrees), absolute) << degrees;
    }
    const float huge = math::absoluteAngle(1.0e20F);
    EXPECT_GE(huge, -180.0F);
    EXPECT_LT(huge, 180.0F);
    EXPECT_TRUE(std::isnan(math::absoluteAngle(-INFINITY)));
}

TEST(GeometryTest, AverageAndSignedAngleInThePlane) {
    EXPECT_EQ(math::average(1.0F, 2.0F, 3.0F, 6.0F), 3.0F);
    const Vec b(1.0F, 1.0F, 0.0F);
    EXPECT_NEAR(math::getDegree(Vec(0.0F, 1.0F, 0.0F), b, Vec(1.0F, 0.0F, 9.0F)), kPi / 2, 1e-6);
    EXPECT_NEAR(math::getDegree(Vec(1.0F, 0.0F, 0.0F), b, Vec(0.0F, 1.0F, -9.0F)), -kPi / 2, 1e-6);
    EXPECT_NEAR(std::fabs(math::getDegree(Vec(-1.0F, 0.0F, 0.0F), Vec(), Vec(1.0F, 0.0F, 0.0F))),
                kPi, 1e-6);
    EXPECT_EQ(math::getDegree(b, Vec(7.0F, 1.0F, 0.0F), b), 0.0F);
}

}  // namespace
