#include "math/Point.h"

#include <limits>
#include <sstream>

#include <gtest/gtest.h>

namespace {

using math::Point;

TEST(PointTest, ComponentsAndCompoundArithmetic) {
    Point p(1.0F, 2.0F, 3.0F);
    EXPECT_EQ(p.getX(), 1.0F);
    EXPECT_EQ(p.getY(), 2.0F);
    EXPECT_EQ(p.getZ(), 3.0F);
    p += Point(0.5F, 0.5F, 1.0F);
    EXPECT_EQ(p.getX(), 1.5F);
    EXPECT_EQ(p.getY(), 2.5F);
    EXPECT_EQ(p.getZ(), 4.0F);
    p -= Point(1.5F, 0.5F, 4.0F);
    EXPECT_EQ(p.getX(), 0.0F);
    EXPECT_EQ(p.getY(), 2.0F);
    EXPECT_EQ(p.getZ(), 0.0F);
}

TEST(PointTest, EqualityIgnoresHeight) {
    EXPECT_TRUE(Point(1.0F, 2.0F, 3.0F) == Point(1.0F, 2.0F, -9.0F));
    EXPECT_FALSE(Point(1.0F, 2.0F, 3.0F) != Point(1.0F, 2.0F, -9.0F));
    EXPECT_TRUE(Point(1.0F, 2.0F) != Point(1.0F, 2.5F));
    EXPECT_TRUE(Point(1.0F, 2.0F) != Point(1.5F, 2.0F));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(Point(nan, 0.0F) == Point(nan, 0.0F));
    EXPECT_TRUE(Point(0.0F, nan) != Point(0.0F, nan));
}

TEST(PointTest, OrderIsByXThenYIgnoringHeight) {
    EXPECT_TRUE(Point(1.0F, 9.0F) < Point(2.0F, 0.0F));
    EXPECT_FALSE(Point(2.0F, 0.0F) < Point(1.0F, 9.0F));
    EXPECT_TRUE(Point(1.0F, 1.0F) < Point(1.0F, 2.0F));
    EXPECT_FALSE(Point(1.0F, 2.0F) < Point(1.0F, 1.0F));
    EXPECT_FALSE(Point(1.0F, 2.0F, 0.0F) < Point(1.0F, 2.0F, 5.0F));
    EXPECT_FALSE(Point(1.0F, 2.0F, 5.0F) < Point(1.0F, 2.0F, 0.0F));
}

TEST(PointTest, TextFormHasNoBlanks) {
    std::ostringstream out;
    out << Point(1.0F, 2.0F, 3.0F) << Point(-0.5F, 0.25F, 0.0F);
    EXPECT_EQ(out.str(), "(1,2,3)(-0.5,0.25,0)");
}

}  // namespace
