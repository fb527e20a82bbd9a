#include "math/Vector3.h"

#include <sstream>

#include <gtest/gtest.h>

namespace {

using Vec = math::Vector3<float>;

TEST(Vector3Test, DefaultIsZeroAndComponentsAreInOrder) {
    const Vec zero;
    EXPECT_EQ(zero.getX(), 0.0F);
    EXPECT_EQ(zero.getY(), 0.0F);
    EXPECT_EQ(zero.getZ(), 0.0F);
    Vec v(1.0F, 2.0F, 3.0F);
    EXPECT_EQ(v.getX(), 1.0F);
    EXPECT_EQ(v.getY(), 2.0F);
    EXPECT_EQ(v.getZ(), 3.0F);
    v.setX(-1.0F);
    v.setY(-2.0F);
    v.setZ(-3.0F);
    EXPECT_EQ(v, Vec(-1.0F, -2.0F, -3.0F));
}

TEST(Vector3Test, ArithmeticIsComponentwise) {
    const Vec a(1.0F, 2.0F, 3.0F);
    const Vec b(0.5F, -4.0F, 10.0F);
    EXPECT_EQ(a + b, Vec(1.5F, -2.0F, 13.0F));
    EXPECT_EQ(a - b, Vec(0.5F, 6.0F, -7.0F));
    EXPECT_EQ(a * 2.0F, Vec(2.0F, 4.0F, 6.0F));
    EXPECT_EQ(2.0F * a, Vec(2.0F, 4.0F, 6.0F));
    EXPECT_EQ(a / 2.0F, Vec(0.5F, 1.0F, 1.5F));
    EXPECT_EQ(-a, Vec(-1.0F, -2.0F, -3.0F));
    Vec c = a;
    c += b;
    c -= a;
    EXPECT_EQ(c, b);
}

TEST(Vector3Test, LengthIsEuclidean) {
    EXPECT_FLOAT_EQ(Vec(3.0F, 4.0F, 12.0F).length(), 13.0F);
    EXPECT_EQ(Vec().length(), 0.0F);
}

TEST(Vector3Test, TextForm) {
    std::ostringstream out;
    out << Vec(1.0F, 2.0F, 3.0F) << ' ' << Vec(1.0F, -2.5F, 0.0F);
    EXPECT_EQ(out.str(), "(1, 2, 3) (1, -2.5, 0)");
}

TEST(Vector3Test, TextFormFollowsTheStreamFormatting) {
    std::ostringstream out;
    out.setf(std::ios::fixed);
    out.precision(2);
    out << Vec(0.1F, 1234567.0F, -0.007F);
    EXPECT_EQ(out.str(), "(0.10, 1234567.00, -0.01)");
}

}  // namespace
